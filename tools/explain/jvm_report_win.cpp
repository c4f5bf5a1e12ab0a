#include "tools/explain/jvm_report.h"

#include "base/ansi_text.h"
#include "base/windows.h"
#include "jvm/time_stamp.h"
#include "jvm/vm_parameters.h"
#include "settings/keys.h"
#include "settings/layered_settings.h"
#include "settings/settings_paths.h"
#include "tools/common/text_encoding.h"

namespace tarn::tools {
namespace {

// Each parameter becomes one option, after all others but that of "Fast Start". Without a class
// path the launcher does not read the parameters.
void ReportPercentages(const std::wstring& parameters, bool hasFastStart, JvmReport& report) {
    const std::vector<std::wstring> tokens = SplitVmParameters(parameters);
    const std::size_t following = hasFastStart ? 1 : 0;
    if (tokens.size() + following >= report.options.size()) return;
    const std::size_t first = report.options.size() - following - tokens.size();
    for (std::size_t at = 0; at < tokens.size(); ++at) {
        if (!HasPercentageForm(RemoveQuotes(tokens[at]))) continue;
        report.percentages.push_back({Utf8Of(tokens[at]), report.options[first + at]});
    }
}

// The JVM reads the first two itself, whoever creates it; the third is read by java.exe.
void ReportOptionVariables(JvmReport& report) {
    constexpr struct {
        const char* name;
        const char* effect;
    } kVariables[] = {{"JAVA_TOOL_OPTIONS", "read-first"},
                      {"_JAVA_OPTIONS", "read-last"},
                      {"JDK_JAVA_OPTIONS", "ignored"}};
    for (const auto& variable : kVariables) {
        const std::string value = EnvironmentVariable(WideOf(variable.name).c_str());
        if (!value.empty())
            report.optionVariables.push_back({variable.name, value, variable.effect});
    }
}

void ReportOutput(const char* stream, const std::wstring& name, bool append, const SYSTEMTIME& now,
                  JvmReport& report) {
    if (name.empty()) return;
    OutputReport output;
    output.stream = stream;
    output.name = Utf8Of(name);
    output.file = Utf8Of(ExpandTimeStamp(name, now));
    output.hasPicture = SplitTimeStamp(name).has_value();
    output.append = append;
    report.outputs.push_back(std::move(output));
}

}  // namespace

std::string EnvironmentVariable(const wchar_t* name) {
    const DWORD size = GetEnvironmentVariableW(name, nullptr, 0);
    std::wstring value(size, L'\0');
    value.resize(GetEnvironmentVariableW(name, value.data(), size));
    return Utf8Of(value);
}

JvmReport ReportJvm(const std::wstring& programPath, const Settings& settings,
                    const JvmOptions& options, std::uint64_t defaultStackSize) {
    JvmReport report;
    report.mainClass = Utf8Of(settings.mainClass);
    for (const std::string& option : options.ansiOptions) {
        report.options.push_back(Utf8Of(FromThreadAnsi(option)));
    }
    ReportOptionVariables(report);
    for (const std::wstring& argument : options.arguments)
        report.arguments.push_back(Utf8Of(argument));
    const bool fromOption = options.javaThreadStackSize != 0;
    report.stackSize = fromOption ? options.javaThreadStackSize : defaultStackSize;
    report.stackSizeFrom = report.stackSize == 0 ? "executable" : fromOption ? "option" : "runtime";

    const MemorySizes memory = ReadMemorySizes();
    report.physicalMemory = memory.totalPhysical;
    report.availableAddressSpace = memory.availableVirtual;
    if (const std::optional<std::wstring> file = SettingsPathOf(programPath)) {
        ReportPercentages(LayeredSettings(*file).GetValue(keys::kJavaRuntimeEnvironment,
                                                          keys::kVirtualMachineParameters),
                          options.hasArchive, report);
    }

    SYSTEMTIME now;
    GetLocalTime(&now);
    const OutputFiles& files = options.outputFiles;
    ReportOutput("output", files.outputFile, files.outputAppend, now, report);
    ReportOutput("error", files.errorFile, files.errorAppend, now, report);

    if (options.hasArchive) {
        const std::string& option = report.options.back();
        report.archive = option.substr(option.find('=') + 1);
        report.readsArchive = option.starts_with("-XX:SharedArchiveFile=");
    }
    report.showsUncaughtException = settings.failureCheck;
    report.staysAfterMain = IbmInPolicy(settings.policy);
    report.destroysJvm = settings.serviceMode && !report.staysAfterMain;
    return report;
}

}  // namespace tarn::tools
