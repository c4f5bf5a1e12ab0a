#include "jvm/build_options.h"

#include "base/ansi_text.h"
#include "base/arguments.h"
#include "base/environment.h"
#include "base/paths.h"
#include "base/text.h"
#include "base/windows.h"
#include "jvm/class_path.h"
#include "jvm/vm_parameters.h"
#include "resources/ids.h"
#include "settings/keys.h"
#include "settings/layered_settings.h"
#include "settings/settings_paths.h"
#include "ui/messages/error_reporter.h"

namespace tarn {
namespace {

// Builds one option as the JVM gets it, and takes the thread's stack size from it on the way.
std::wstring TransformVmParameter(std::wstring_view token, std::uint64_t& threadStackSize) {
    std::wstring option = RemoveQuotes(std::wstring(token));
    if (HasPercentageForm(option)) option = ResolvePercentage(option, ReadMemorySizes());
    if (option.starts_with(L"-Xss")) threadStackSize = StackSizeOf(option);
    return option;
}

std::wstring ReadClassPath(const LayeredSettings& layered, const std::wstring& program) {
    std::wstring classPath =
        ExpandClassPath(layered.GetValue(keys::kClassPath, keys::kClassPath), FolderOf(program));
    const std::wstring embedded = layered.GetValue(keys::kApplication, keys::kEmbeddedJar);
    if (EqualsIgnoringCase(embedded, L"Yes")) {
        classPath = Concat({program, L";", classPath});
    }
    return classPath;
}

void ReadOutputFiles(const LayeredSettings& layered, OutputFiles& files) {
    const auto application = [&](const wchar_t* key) {
        return layered.GetValue(keys::kApplication, key);
    };
    // Each value costs a look into the file, so none is read that says nothing without another.
    files.outputFile = ExpandEnvironment(application(keys::kOutputFile));
    files.outputAppend = !files.outputFile.empty() && application(keys::kOutputAppend) == L"yes";
    files.errorFile = ExpandEnvironment(application(keys::kErrorFile));
    files.errorAppend = !files.errorFile.empty() && application(keys::kErrorAppend) == L"yes";
}

void AppendDefaultArguments(const LayeredSettings& layered, std::vector<std::wstring>& arguments) {
    const std::wstring cmd = layered.GetValue(keys::kApplication, keys::kCmd);
    for (std::wstring& argument : SplitArguments(ExpandEnvironment(cmd))) {
        if (!argument.empty()) arguments.push_back(std::move(argument));
    }
}

}  // namespace

MemorySizes ReadMemorySizes() {
    // The older call on purpose: its "available" is this process's address space, not a promise.
    MEMORYSTATUS status;
    GlobalMemoryStatus(&status);
    return {status.dwTotalPhys, status.dwAvailVirtual};
}

bool BuildOptions(const ErrorReporter& errors, JvmOptions& options,
                  std::vector<std::wstring>& arguments) {
    const std::optional<std::wstring> program = ModulePath();
    if (!program) return false;
    const std::optional<std::wstring> settingsPath = SettingsPathOf(*program);
    if (!settingsPath) return false;
    const LayeredSettings layered(*settingsPath);

    const std::wstring classPath = ReadClassPath(layered, *program);
    if (classPath.empty()) {
        errors.ShowErrorMessage(IDS_NO_CLASS_PATH);
        return false;
    }
    const auto add = [&](const std::wstring& option) {
        options.ansiOptions.push_back(ToThreadAnsi(ExpandEnvironment(option)));
    };
    add(Concat({L"-Djava.class.path=", classPath}));
    const std::wstring parameters =
        layered.GetValue(keys::kJavaRuntimeEnvironment, keys::kVirtualMachineParameters);
    for (const std::wstring& token : SplitVmParameters(parameters)) {
        add(TransformVmParameter(token, options.threadStackSize));
    }
    ReadOutputFiles(layered, options.outputFiles);
    AppendDefaultArguments(layered, arguments);
    return true;
}

}  // namespace tarn
