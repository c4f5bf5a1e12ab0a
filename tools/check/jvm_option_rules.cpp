#include <algorithm>

#include "settings/keys.h"
#include "tools/check/admitted_versions.h"
#include "tools/check/jvm_options.h"
#include "tools/check/rules.h"
#include "tools/check/spelling.h"
#include "tools/common/text_encoding.h"

namespace tarn::tools {
namespace {

constexpr char kEndsLaunch[] = ": the JVM refuses it, and the launch ends with a message";

void ReportUnknown(std::wstring_view option, std::size_t line, SpellingHelp& spelling,
                   Findings& findings) {
    // Spelling is compared without the value.
    const std::wstring_view head = option.substr(0, option.find_first_of(L"=:"));
    std::vector<std::wstring> words;
    for (const AcceptedOption& accepted : AcceptedOptions()) {
        std::wstring_view word = accepted.option;
        if (word.ends_with(L'=') || word.ends_with(L':')) word.remove_suffix(1);
        if (word.size() > 2) words.emplace_back(word);
    }
    const std::wstring closest = spelling.ClosestWord(head, words);
    findings.Error("unknown-option", line, Quoted(option) + " is not a JVM option" + kEndsLaunch,
                   closest.empty() ? "remove it" : "did you mean " + Utf8Of(closest) + "?");
}

// A token without "-": the remainder of an option that was split at a space.
void ReportLoose(const std::vector<std::wstring>& options, std::size_t at, std::size_t line,
                 Findings& findings) {
    const std::wstring& option = options[at];
    std::string advice = "options begin with \"-\"; remove it";
    if (option.empty()) {
        advice = "remove the pair of quotes";
    } else if (at > 0 && options[at - 1].starts_with(L"-D")) {
        const std::wstring& before = options[at - 1];
        const std::size_t equals = before.find(L'=');
        if (equals != std::wstring::npos) {
            advice =
                "a value with spaces requires quotes: " + Utf8Of(before.substr(0, equals + 1)) +
                '"' + Utf8Of(before.substr(equals + 1)) + ' ' + Utf8Of(option) + '"';
        }
    } else if (at > 0 && (options[at - 1] == L"-Xmx" || options[at - 1] == L"-Xms" ||
                          options[at - 1] == L"-Xss")) {
        advice = "write " + Utf8Of(options[at - 1]) + Utf8Of(option) + " without a space";
    }
    findings.Error("not-an-option", line, Quoted(option) + " is not an option" + kEndsLaunch,
                   std::move(advice));
}

void ReportTooNew(const AcceptedOption& accepted, VersionSet admitted, std::size_t line,
                  Findings& findings) {
    VersionSet refusing = 0;
    for (std::size_t at = 0; at < kMeasuredVersions.size(); ++at) {
        if (kMeasuredVersions[at] < accepted.since) refusing |= 1U << at;
    }
    refusing &= admitted;
    if (refusing == 0) return;
    const std::string message = "Java before " + std::to_string(accepted.since) + " refuses \"" +
                                Utf8Of(accepted.option) + '"';
    const std::string advice =
        "raise \"Minimum Version\" to " + std::to_string(accepted.since) + ", or remove it";
    if (refusing == admitted) {
        findings.Error("unknown-option", line, message, advice);
    } else {
        findings.Warning("unknown-option", line, message + ", which the version bounds admit",
                         advice);
    }
}

// With this option a JVM ignores the options that only newer ones know.
bool IgnoresUnknown(const std::vector<std::wstring>& options) {
    return std::find(options.begin(), options.end(), L"-XX:+IgnoreUnrecognizedVMOptions") !=
           options.end();
}

void CheckOverridden(std::wstring_view option, std::size_t line, Findings& findings) {
    const auto warn = [&](const char* key) {
        findings.Warning(
            "overrides-launcher", line,
            Quoted(option.substr(0, option.find(L'='))) + " overrides the launcher's own option",
            std::string("use \"") + key + "\" instead");
    };
    if (option.starts_with(L"-Djava.class.path=")) warn("Class Path");
    if (option.starts_with(L"-Djava.library.path=")) warn("Library Path");
}

void CheckOption(const std::vector<std::wstring>& options, std::size_t at, VersionSet admitted,
                 std::size_t line, SpellingHelp& spelling, Findings& findings) {
    const std::wstring& option = options[at];
    CheckOverridden(option, line, findings);
    if (const RefusedOption* const refused = FindRefused(option)) {
        findings.Error("refused-option", line, Quoted(option) + kEndsLaunch,
                       std::string(refused->advice));
    } else if (const AcceptedOption* const accepted = FindAccepted(option)) {
        if (accepted->since != 0 && !IgnoresUnknown(options)) {
            ReportTooNew(*accepted, admitted, line, findings);
        }
    } else if (RequiresEqualsSign(option)) {
        const bool hasValue = at + 1 < options.size() && !options[at + 1].starts_with(L"-");
        findings.Error("blank-for-equals", line,
                       Quoted(option) + " requires \"=\" before its value" + kEndsLaunch,
                       "write " + Utf8Of(option) + '=' +
                           (hasValue ? Utf8Of(options[at + 1]) : std::string("<value>")));
    } else if (!option.starts_with(L"-")) {
        // The value of the previous option is reported with that option.
        const bool isValue =
            at > 0 && (RequiresEqualsSign(options[at - 1]) || options[at - 1] == L"-cp" ||
                       options[at - 1] == L"-classpath" || options[at - 1] == L"-jar" ||
                       options[at - 1] == L"-p" || options[at - 1] == L"-m");
        if (!isValue) ReportLoose(options, at, line, findings);
    } else {
        ReportUnknown(option, line, spelling, findings);
    }
}

}  // namespace

void CheckJvmOptions(const CheckedSettings& settings, Findings& findings) {
    const Setting text =
        settings.Get(keys::kJavaRuntimeEnvironment, keys::kVirtualMachineParameters);
    if (std::count(text.text.begin(), text.text.end(), L'"') % 2 != 0) {
        findings.Warning("unclosed-quote", text.line,
                         "a quote in \"Virtual Machine Parameters\" is not closed: everything "
                         "after it is one option",
                         "close it");
    }
    if (text.text.find(L'\t') != std::wstring::npos) {
        findings.Warning("tab", text.line, "a tab does not separate options", "write a space");
    }
    if (!AdmitsHotSpot(settings)) return;
    const VersionSet admitted = AdmittedVersions(settings);
    const WrittenOptions written = JvmOptionsOf(settings);
    SpellingHelp spelling;
    for (std::size_t at = 0; at < written.options.size(); ++at) {
        // A leading variable may expand to any option; elsewhere it is part of a value.
        if (written.options[at].starts_with(L'%')) continue;
        CheckOption(written.options, at, admitted, written.line, spelling, findings);
    }
}

}  // namespace tarn::tools
