#include <algorithm>
#include <array>

#include "tools/check/jvm_options.h"
#include "tools/check/rules.h"
#include "tools/check/spelling.h"
#include "tools/check/vm_flag_number.h"
#include "tools/check/vm_flags.h"
#include "tools/common/text_encoding.h"

namespace tarn::tools {
namespace {

constexpr std::wstring_view kStart = L"-XX:";

// 11 and 17.
constexpr VersionSet kVersionsWithOldDecimals = 0b0011;

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

// The flags that select a collector. UseParallelOldGC is a variant of the parallel collector.
constexpr std::array<std::string_view, 8> kCollectors = {
    "UseSerialGC", "UseParallelGC", "UseParallelOldGC", "UseConcMarkSweepGC",
    "UseG1GC",     "UseZGC",        "UseShenandoahGC",  "UseEpsilonGC"};

bool IsCollector(std::string_view name) {
    return std::find(kCollectors.begin(), kCollectors.end(), name) != kCollectors.end();
}

std::string RangeText(const VmFlag& flag) {
    if (flag.highest.empty()) return std::string(flag.lowest) + " or more";
    if (flag.lowest.empty()) return "at most " + std::string(flag.highest);
    return std::string(flag.lowest) + " to " + std::string(flag.highest);
}

class FlagChecker {
  public:
    FlagChecker(VersionSet admitted, std::size_t line, Findings& findings)
        : admitted_(admitted), line_(line), findings_(findings) {}

    void Check(std::wstring_view option) {
        const WrittenFlag written = ReadFlag(option);
        NoteUnlock(written);
        NoteCollector(written);
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

    // To be called after all options: a collector may be turned off again.
    void CheckCollectors() {
        VersionSet refusing = 0;
        std::string names;
        for (std::size_t at = 0; at < kMeasuredVersions.size(); ++at) {
            const VersionSet version = 1U << at;
            const auto known = std::count_if(
                collectors_.begin(), collectors_.end(),
                [&](const std::string& name) { return (FindVmFlag(name)->known & version) != 0; });
            if (known > 1) refusing |= version & admitted_;
        }
        for (const std::string& name : collectors_) names += (names.empty() ? "" : ", ") + name;
        Report(refusing, "two garbage collectors are selected, which the JVM refuses: " + names,
               "write only one of them");
    }

  private:
    void NoteUnlock(const WrittenFlag& written) {
        if (!written.isOn) return;
        if (written.name == "UnlockDiagnosticVMOptions") hasDiagnostic_ = true;
        if (written.name == "UnlockExperimentalVMOptions") hasExperimental_ = true;
        if (written.name == "IgnoreUnrecognizedVMOptions") ignoresUnknown_ = true;
    }

    void NoteCollector(const WrittenFlag& written) {
        if (!written.isSwitch || !IsCollector(written.name)) return;
        const std::string name =
            written.name == "UseParallelOldGC" ? "UseParallelGC" : written.name;
        std::erase(collectors_, name);
        if (written.isOn) collectors_.push_back(name);
    }

    // Reports an error when no admitted version would start, otherwise a warning.
    void Report(VersionSet refusing, std::string message, std::string advice) {
        if (refusing == 0) return;
        if (refusing == admitted_) {
            findings_.Error("vm-flag", line_, std::move(message), std::move(advice));
        } else {
            findings_.Warning("vm-flag", line_, std::move(message), std::move(advice));
        }
    }

    void ReportUnknown(std::wstring_view option, const WrittenFlag& written) {
        if (ignoresUnknown_) return;
        std::string advice(SuccessorOf(written.name));
        if (advice.empty()) {
            const std::wstring closest = spelling_.ClosestWord(WideOf(written.name), VmFlagNames());
            advice = closest.empty() ? "remove it" : "did you mean " + Utf8Of(closest) + "?";
        }
        Report(admitted_,
               "no JVM from 11 to 25 accepts " + Quoted(option) + ": it refuses to start",
               std::move(advice));
    }

    void CheckVersions(std::wstring_view option, const VmFlag& flag) {
        const VersionSet refusing = ignoresUnknown_ ? 0 : admitted_ & ~(flag.known | flag.ignored);
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
        const VersionSet knowing = admitted_ & flag.known;
        if (flag.kind == FlagKind::Switch) {
            if (written.isSwitch && !written.hasValue) return;
            Report(knowing, Quoted(option) + " is a switch, which the JVM refuses in this form",
                   "write -XX:+" + name + " or -XX:-" + name);
        } else if (written.isSwitch || !written.hasValue) {
            Report(knowing, Quoted(option) + " requires a value: the JVM refuses it in this form",
                   "write -XX:" + name + "=<value>");
        } else if (flag.kind != FlagKind::Text && !HasVariable(option)) {
            CheckNumber(option, flag, written.value);
        }
    }

    void CheckNumber(std::wstring_view option, const VmFlag& flag, std::string_view value) {
        const VersionSet knowing = admitted_ & flag.known;
        const std::string name(flag.name);
        const std::optional<VmFlagNumber> number = ParseVmFlagNumber(flag.kind, value);
        if (!number) {
            const bool isPercentage =
                value.ends_with('%') &&
                ParseVmFlagNumber(flag.kind, value.substr(0, value.size() - 1));
            Report(knowing, Quoted(option) + " requires a number: the JVM refuses it",
                   isPercentage
                       ? "write -XX:" + name + '=' + std::string(value.substr(0, value.size() - 1))
                   : flag.kind == FlagKind::Decimal
                       ? "write a number such as 50 or 12.5"
                       : "write a whole number, with k, m or g for a size");
        } else if (!IsInRange(flag, number->value)) {
            Report(knowing, Quoted(option) + " is out of range: the JVM refuses it",
                   "write " + RangeText(flag));
        } else if (number->isNewForm) {
            const VersionSet old = knowing & kVersionsWithOldDecimals;
            Report(old, "Java " + NameVersions(old) + " refuses the number in " + Quoted(option),
                   "write it with digits before and after the point");
        }
    }

    void CheckLock(std::wstring_view option, const VmFlag& flag) {
        if (ignoresUnknown_) return;
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
    SpellingHelp spelling_;
    std::vector<std::string> collectors_;
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
    checker.CheckCollectors();
}

}  // namespace tarn::tools
