#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace tarn {

/// A bound or filler that reaches every version: what the unwritten tail of a maximum is set to.
inline constexpr std::int32_t kOpenPart = 65535;

/// A Java version as four numbers, whatever shape its text had.
struct RuntimeVersion {
    /// Major, minor, micro, update.
    std::array<std::int32_t, 4> parts{};
    /// How many numeric groups the text gave: 0 when it could not be parsed, 5 when it had more
    /// than four. Never compared.
    std::int32_t count = 0;
};

/// Reads a version text: each run of ASCII digits is a number, everything between them is skipped.
/// Parts that the text does not reach become `fill`. Returns false, with `version` all zeros, for
/// a text without a digit and for a number too large; a tenth digit that takes 214748364 past the
/// 32-bit range wraps instead.
bool ParseVersion(std::wstring_view text, std::int32_t fill, RuntimeVersion& version);

/// The version as text: at least two parts, up to the last one that is neither 0 nor 65535;
/// "0.0.0.0" when there is none.
std::wstring FormatVersion(const RuntimeVersion& version);

/// -1, 0 or 1: the order of `a` and `b`, decided by the first part that differs.
int CompareVersions(const RuntimeVersion& a, const RuntimeVersion& b);

/// Whether a candidate is one of the versions that `preferred` stands for: its trailing zero parts
/// match anything, so "1.8" stands for every 1.8 runtime and a text without digits for any.
bool MatchesPreferred(std::wstring_view preferred, const RuntimeVersion& candidate);

/// The same with the preferred text read already (with 0 for the unwritten parts).
bool MatchesPreferred(const RuntimeVersion& preferred, const RuntimeVersion& candidate);

/// The bound that a "Minimum Version" text sets: "any" none, else the version with 0 for the
/// unwritten parts.
RuntimeVersion MinimumBound(std::wstring_view text);

/// The bound that a "Maximum Version" text sets: "any" 65535.65535.65535.65535, else the version
/// with 65535 for the unwritten parts. A text without a digit (an absent setting too) bounds at
/// 0.0.0.0 and so shuts out every registered runtime that has a version; settings say "any".
RuntimeVersion MaximumBound(std::wstring_view text);

/// Whether a version says nothing: four equal parts, each 0 or 65535.
bool IsBlank(const RuntimeVersion& version);

}  // namespace tarn
