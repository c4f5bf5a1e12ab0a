#include "jvm/jvm_options.h"

#include "base/ansi_text.h"
#include "base/arguments.h"
#include "base/environment.h"
#include "base/paths.h"
#include "base/text.h"
#include "jvm/class_path.h"
#include "jvm/fast_start.h"
#include "jvm/vm_parameters.h"
#include "resources/ids.h"
#include "settings/keys.h"
#include "settings/layered_settings.h"
#include "settings/settings_paths.h"
#include "ui/messages/error_reporter.h"

namespace tarn {
namespace {

std::wstring ReadClassPath(const LayeredSettings& layered, const std::wstring& program) {
    std::wstring classPath =
        ExpandClassPath(layered.GetValue(keys::kClassPath, keys::kClassPath), FolderOf(program));
    const std::wstring embedded = layered.GetValue(keys::kApplication, keys::kEmbeddedJar);
    if (IsYes(embedded)) {
        classPath.insert(0, program + L';');
    }
    return classPath;
}

void ReadOutputFiles(const LayeredSettings& layered, OutputFiles& files) {
    const auto application = [&](const wchar_t* key) {
        return layered.GetValue(keys::kApplication, key);
    };
    // Each value is a profile call, so a flag is read only when its file is set.
    files.outputFile = ExpandEnvironment(application(keys::kOutputFile));
    files.outputAppend =
        !files.outputFile.empty() && IsExactlyYes(application(keys::kOutputAppend));
    files.errorFile = ExpandEnvironment(application(keys::kErrorFile));
    files.errorAppend = !files.errorFile.empty() && IsExactlyYes(application(keys::kErrorAppend));
}

void AppendDefaultArguments(const LayeredSettings& layered, std::vector<std::wstring>& arguments) {
    const std::wstring cmd = layered.GetValue(keys::kApplication, keys::kCmd);
    for (std::wstring& argument : SplitArguments(ExpandEnvironment(cmd))) {
        if (!argument.empty()) arguments.push_back(std::move(argument));
    }
}

}  // namespace

JvmOptions BuildOptions(LaunchKind kind, const ErrorReporter& errors,
                        const std::wstring& jvmLibraryPath, std::string&& ansiLibraryPathOption,
                        std::vector<std::wstring>&& commandLineArguments) {
    JvmOptions options;
    options.arguments.swap(commandLineArguments);
    if (!ansiLibraryPathOption.empty()) {
        options.ansiOptions.push_back(std::move(ansiLibraryPathOption));
    }

    const std::optional<std::wstring> program = ModulePath();
    if (!program) return options;
    const std::optional<std::wstring> settingsPath = SettingsPathOf(*program);
    if (!settingsPath) return options;
    const LayeredSettings layered(*settingsPath);

    const std::wstring classPath = ReadClassPath(layered, *program);
    if (classPath.empty()) {
        errors.ShowErrorMessage(IDS_NO_CLASS_PATH);
        return options;
    }
    const auto add = [&](const std::wstring& option) {
        options.ansiOptions.push_back(ToThreadAnsi(ExpandEnvironment(option)));
    };
    add(L"-Djava.class.path=" + classPath);
    const std::wstring parameters =
        layered.GetValue(keys::kJavaRuntimeEnvironment, keys::kVirtualMachineParameters);
    for (const std::wstring& token : SplitVmParameters(parameters)) {
        add(TransformVmParameter(token, options.javaThreadStackSize));
    }
    ReadOutputFiles(layered, options.outputFiles);
    AppendDefaultArguments(layered, options.arguments);
    // The last key of its section: when it is absent, that is known by now and costs no call.
    const std::wstring setting =
        ExpandEnvironment(layered.GetValue(keys::kApplication, keys::kFastStart));
    if (!setting.empty()) {
        AddFastStartOption({setting, *program, jvmLibraryPath, classPath, parameters, kind},
                           options);
    }
    return options;
}

}  // namespace tarn
