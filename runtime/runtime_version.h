#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace tarn {

/// The part that exceeds those of all versions: fills the unwritten tail of a maximum.
inline constexpr std::int32_t kOpenPart = 65535;

/// A Java version as four numbers.
struct RuntimeVersion {
    /// Major, minor, micro, update.
    std::array<std::int32_t, 4> parts{};
    /// Number of numeric groups in the text: 0 when it could not be parsed, 5 when there were more
    /// than four. Not compared.
    std::int32_t count = 0;
};

/// Reads the first four groups of ASCII digits of a text; all other characters only separate them.
/// Parts beyond the last group become `fill`. Returns false, with `version` all zeros, for a text
/// without a digit and for a number that is too large. A tenth digit that exceeds 32 bits wraps:
/// docs/developer/compatibility.md.
bool ParseVersion(std::wstring_view text, std::int32_t fill, RuntimeVersion& version);

/// Returns the value of a key in the text of a runtime's file `release`, exactly as written:
/// usually in quotes, and with the carriage return of a line that ends with one. `key` includes the
/// "=". Empty when there is none. The file may contain anything.
std::string_view ReleaseValueIn(std::string_view releaseFile, std::string_view key);

/// Returns the value of `JAVA_VERSION`.
std::string_view JavaVersionIn(std::string_view releaseFile);

/// Returns the version as text: two parts or more, up to the last one that is neither 0 nor 65535;
/// "0.0.0.0" when there is none.
std::wstring FormatVersion(const RuntimeVersion& version);

/// Returns -1, 0 or 1 for the order of `a` and `b`, which the first different part decides.
int CompareVersions(const RuntimeVersion& a, const RuntimeVersion& b);

/// Whether a candidate matches a preferred version. Trailing zeros match any number, so "1.8"
/// matches every 1.8 runtime, and a text without digits every runtime:
/// docs/developer/compatibility.md.
bool MatchesPreferred(std::wstring_view preferred, const RuntimeVersion& candidate);

/// Returns the bound of a "Minimum Version" text: none for "any", otherwise the version with 0 in
/// the unwritten parts.
RuntimeVersion MinimumBound(std::wstring_view text);

/// Returns the bound of a "Maximum Version" text: 65535.65535.65535.65535 for "any", otherwise the
/// version with 65535 in the unwritten parts. A text without a digit, also that of an absent
/// setting, is 0.0.0.0 and excludes every registered runtime with a version:
/// docs/developer/compatibility.md.
RuntimeVersion MaximumBound(std::wstring_view text);

/// Whether the version states nothing: four equal parts, each 0 or 65535.
bool IsBlank(const RuntimeVersion& version);

/// The text that describes two bounds, with its arguments.
struct VersionPhrase {
    /// Id in the string table.
    unsigned textId = 0;
    std::wstring first;
    std::wstring second;
};

/// Chooses the text that describes the bounds, by which of them are blank.
VersionPhrase ChooseVersionPhrase(const RuntimeVersion& minimum, const RuntimeVersion& maximum);

/// Returns the phrase that tells the user which versions are accepted ("minimum version 1.8"), from
/// the string table.
std::wstring DescribeVersionBounds(const RuntimeVersion& minimum, const RuntimeVersion& maximum);

}  // namespace tarn
