#include "base/text.h"
#include "runtime/runtime_version.h"
#include "settings/keys.h"
#include "tools/check/admitted_versions.h"
#include "tools/check/rules.h"
#include "tools/common/text_encoding.h"

namespace tarn::tools {
namespace {

constexpr std::int32_t kLastOfOldNumbering = 8;

bool HasDigit(std::wstring_view text) {
    return text.find_first_of(L"0123456789") != std::wstring_view::npos;
}

std::string TextOf(const RuntimeVersion& version) {
    return Utf8Of(FormatVersion(version));
}

// For example "8" for a runtime that is registered as "1.8".
bool IsOldNumberWithoutOne(const RuntimeVersion& version) {
    return version.count > 0 && version.parts[0] >= 2 && version.parts[0] <= kLastOfOldNumbering;
}

void CheckBound(const std::string& name, const Setting& bound, Findings& findings) {
    RuntimeVersion version;
    if (!bound || bound.text == L"any") return;
    if (!HasDigit(bound.text)) {
        const bool isAny = EqualsIgnoringCase(TrimSpaces(bound.text), L"any");
        findings.Warning(
            "version", bound.line,
            Quoted(bound.text) + " is not a version: \"" + name + "\" is read as 0.0.0.0",
            isAny ? "write any, in lower case" : "write a version such as 17, or any");
    } else if (!ParseVersion(bound.text, 0, version)) {
        findings.Warning("version", bound.line,
                         "a number of " + Quoted(bound.text) + " is too large: \"" + name +
                             "\" is read as 0.0.0.0",
                         "write a version such as 17, or any");
    } else if (version.count > 4) {
        findings.Note("version", bound.line,
                      "only the first four numbers of " + Quoted(bound.text) + " are used");
    }
}

void CheckOldNumbering(const Setting& minimum, Findings& findings) {
    RuntimeVersion version;
    if (!ParseVersion(minimum.text, 0, version) || !IsOldNumberWithoutOne(version)) return;
    const std::string number = std::to_string(version.parts[0]);
    findings.Warning("old-numbering", minimum.line,
                     "Java " + number + " is registered as 1." + number +
                         ", which is below a minimum of " + number,
                     "write 1." + number + " to admit it, or 9");
}

void CheckOrder(const CheckedSettings& settings, const Setting& minimum, const Setting& maximum,
                Findings& findings) {
    const RuntimeVersion lowest = MinimumBound(minimum.text);
    const RuntimeVersion highest = MaximumBound(maximum.text);
    if (HasDigit(maximum.text) && CompareVersions(lowest, highest) > 0) {
        findings.Error("no-version-fits", maximum.line,
                       "the minimum " + TextOf(lowest) + " is above the maximum " +
                           TextOf(highest) + ": no registered runtime qualifies",
                       "exchange the two, or write Maximum Version=any");
        return;
    }
    if (maximum.text == L"any" || HasDigit(maximum.text) || HasOwnRuntime(settings)) return;
    findings.Warning(
        "no-maximum", maximum.line,
        "without a \"Maximum Version\" no registered runtime with a version number qualifies",
        "write Maximum Version=any");
}

void CheckPreferred(const Setting& preferred, const Setting& minimum, const Setting& maximum,
                    Findings& findings) {
    const RuntimeVersion lowest = MinimumBound(minimum.text);
    const RuntimeVersion highest = MaximumBound(maximum.text);
    for (const std::wstring& piece : Split(preferred.text, L';')) {
        RuntimeVersion first, last;
        if (piece.find(L',') != std::wstring::npos) {
            findings.Warning("preferred-version", preferred.line,
                             Quoted(piece) + " among \"Preferred versions\" is read as one version",
                             "separate versions with \";\", not with \",\": " +
                                 Utf8Of(ReplaceAll(piece, L',', L';')));
            continue;
        }
        if (!ParseVersion(piece, 0, first)) {
            findings.Warning("preferred-version", preferred.line,
                             Quoted(piece) +
                                 " among \"Preferred versions\" matches any version, so nothing "
                                 "after it is used",
                             "write versions separated by \";\", without one at the end");
            continue;
        }
        ParseVersion(piece, kOpenPart, last);
        if (CompareVersions(last, lowest) < 0 ||
            (HasDigit(maximum.text) && CompareVersions(first, highest) > 0)) {
            findings.Warning("preferred-version", preferred.line,
                             "the preferred version " + Quoted(piece) + " is outside the bounds",
                             "widen \"Minimum Version\" and \"Maximum Version\", or remove it");
        }
    }
}

}  // namespace

void CheckVersions(const CheckedSettings& settings, Findings& findings) {
    const auto get = [&](const wchar_t* key) {
        return settings.Get(keys::kJavaRuntimeEnvironment, key);
    };
    const Setting minimum = get(keys::kMinimumVersion);
    const Setting maximum = get(keys::kMaximumVersion);
    CheckBound("Minimum Version", minimum, findings);
    CheckBound("Maximum Version", maximum, findings);
    CheckOldNumbering(minimum, findings);
    CheckOrder(settings, minimum, maximum, findings);
    CheckPreferred(get(keys::kPreferredVersions), minimum, maximum, findings);
}

}  // namespace tarn::tools
