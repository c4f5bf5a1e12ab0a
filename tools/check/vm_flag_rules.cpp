#include "tools/check/jvm_options.h"
#include "tools/check/rules.h"
#include "tools/check/spelling.h"
#include "tools/check/vm_flags.h"
#include "tools/common/text_encoding.h"

namespace tarn::tools {
namespace {

constexpr std::wstring_view kStart = L"-XX:";

// A flag in one of its forms: "-XX:+Name", "-XX:-Name", "-XX:Name=value".
struct WrittenFlag {
    std::string name;
    bool isSwitch = false;
    bool isOn = false;
    bool hasValue = false;
    std::string value;
};

WrittenFlag ReadFlag(std::wstring_view option) {
    std::string text = Utf8Of(option.substr(kStart.size()));
    WrittenFlag flag;
    if (!text.empty() && (text.front() == '+' || text.front() == '-')) {
        flag.isSwitch = true;
        flag.isOn = text.front() == '+';
        text.erase(0, 1);
    }
    const std::size_t equals = text.find('=');
    flag.name = text.substr(0, equals);
    flag.hasValue = equals != std::string::npos;
    if (flag.hasValue) flag.value = text.substr(equals + 1);
    return flag;
}

// Flags that the JVM processes before the flag table, where they are not listed.
bool IsReadEarly(const std::string& name) {
    return name == "Flags" || name == "VMOptionsFile" || name == "IgnoreUnrecognizedVMOptions" ||
           name.starts_with("StartFlightRecording") || name.starts_with("FlightRecorderOptions") ||
           name == "NativeMemoryTracking";
}

class FlagChecker {
  public:
    FlagChecker(VersionSet admitted, std::size_t line, Findings& findings)
        : admitted_(admitted), line_(line), findings_(findings) {}

    void Check(std::wstring_view option) {
        const WrittenFlag written = ReadFlag(option);
        NoteUnlock(written);
        if (IsReadEarly(written.name) || admitted_ == 0) return;
        const VmFlag* const flag = FindVmFlag(written.name);
        if (flag == nullptr) {
            ReportUnknown(option, written);
            return;
        }
        CheckVersions(option, *flag);
        CheckShape(option, *flag, written);
        CheckLock(option, *flag);
    }

  private:
    void NoteUnlock(const WrittenFlag& written) {
        if (!written.isOn) return;
        if (written.name == "UnlockDiagnosticVMOptions") hasDiagnostic_ = true;
        if (written.name == "UnlockExperimentalVMOptions") hasExperimental_ = true;
        if (written.name == "IgnoreUnrecognizedVMOptions") ignoresUnknown_ = true;
    }

    // Reports an error when no admitted version would start, otherwise a warning.
    void Report(VersionSet refusing, std::string message, std::string advice) {
        if (ignoresUnknown_ || refusing == 0) return;
        if (refusing == admitted_) {
            findings_.Error("vm-flag", line_, std::move(message), std::move(advice));
        } else {
            findings_.Warning("vm-flag", line_, std::move(message), std::move(advice));
        }
    }

    void ReportUnknown(std::wstring_view option, const WrittenFlag& written) {
        const std::wstring closest = ClosestWord(WideOf(written.name), VmFlagNames());
        std::string advice(SuccessorOf(written.name));
        if (advice.empty()) {
            advice = closest.empty() ? "remove it" : "did you mean " + Utf8Of(closest) + "?";
        }
        Report(admitted_,
               "no JVM from 11 to 25 accepts " + Quoted(option) + ": it refuses to start",
               std::move(advice));
    }

    void CheckVersions(std::wstring_view option, const VmFlag& flag) {
        const VersionSet refusing = admitted_ & ~(flag.known | flag.ignored);
        const VersionSet ignoring = admitted_ & flag.ignored;
        std::string advice(SuccessorOf(flag.name));
        if (refusing != 0) {
            if (advice.empty()) advice = "remove it, or restrict the versions";
            Report(refusing, "Java " + NameVersions(refusing) + " refuses " + Quoted(option),
                   advice);
        } else if (ignoring != 0) {
            findings_.Warning("vm-flag", line_,
                              "Java " + NameVersions(ignoring) + " ignores " + Quoted(option) +
                                  ", which has been removed",
                              advice.empty() ? "remove it" : std::move(advice));
        }
    }

    void CheckShape(std::wstring_view option, const VmFlag& flag, const WrittenFlag& written) {
        const std::string name(flag.name);
        if (flag.kind == FlagKind::Switch) {
            if (written.isSwitch && !written.hasValue) return;
            Report(admitted_, Quoted(option) + " is a switch, which the JVM refuses in this form",
                   "write -XX:+" + name + " or -XX:-" + name);
        } else if (written.isSwitch || !written.hasValue) {
            Report(admitted_, Quoted(option) + " requires a value: the JVM refuses it in this form",
                   "write -XX:" + name + "=<value>");
        } else if (flag.kind == FlagKind::Number && !HasVariable(option) &&
                   !IsNumber(written.value)) {
            Report(admitted_, Quoted(option) + " requires a number: the JVM refuses it",
                   "write a whole number, with k, m or g for a size");
        }
    }

    static bool IsNumber(std::string_view value) {
        if (value.starts_with('-')) value.remove_prefix(1);
        if (value.starts_with("0x") || value.starts_with("0X")) {
            value.remove_prefix(2);
            return !value.empty();
        }
        const std::size_t end = value.find_first_not_of("0123456789");
        if (end == std::string_view::npos) return !value.empty();
        return end > 0 && end + 1 == value.size() &&
               std::string_view("kKmMgGtT").find(value[end]) != std::string_view::npos;
    }

    void CheckLock(std::wstring_view option, const VmFlag& flag) {
        if (!hasDiagnostic_) {
            Report(admitted_ & flag.diagnostic,
                   Quoted(option) + " is a diagnostic option, which is locked by default",
                   "write -XX:+UnlockDiagnosticVMOptions before it, or remove it");
        }
        if (!hasExperimental_) {
            Report(admitted_ & flag.experimental,
                   Quoted(option) + " is experimental in Java " +
                       NameVersions(admitted_ & flag.experimental) + ", and locked by default",
                   "write -XX:+UnlockExperimentalVMOptions before it, or remove it");
        }
    }

    VersionSet admitted_;
    std::size_t line_;
    Findings& findings_;
    bool hasDiagnostic_ = false;
    bool hasExperimental_ = false;
    bool ignoresUnknown_ = false;
};

}  // namespace

void CheckVmFlags(const CheckedSettings& settings, Findings& findings) {
    if (!AdmitsHotSpot(settings)) return;
    const WrittenOptions written = JvmOptionsOf(settings);
    FlagChecker checker(AdmittedVersions(settings), written.line, findings);
    for (const std::wstring& option : written.options) {
        if (option.starts_with(kStart)) checker.Check(option);
    }
}

}  // namespace tarn::tools
