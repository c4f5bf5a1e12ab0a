#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

// SYSTEMTIME of <windows.h>, which the pure half does without.
struct _SYSTEMTIME;  // NOLINT(bugprone-reserved-identifier,readability-identifier-naming)

namespace tarn {

/// A file name divided at its time stamp. Views of the name.
struct TimeStampName {
    std::wstring_view before;
    /// The text between the first and the last "%"; empty for a single "%".
    std::wstring_view picture;
    std::wstring_view after;
};

/// Divides a file name at its time stamp; no value for a name without "%".
std::optional<TimeStampName> SplitTimeStamp(std::wstring_view name);

/// Replaces every "L" of a picture by the milliseconds (0 to 999), in decimal without leading
/// zeros. The pictures of Windows have none.
std::wstring WithMilliseconds(std::wstring_view picture, unsigned milliseconds);

/// Removes the first field of a picture, a run of one of the `letters`, with the text before it,
/// and returns the field; empty when there is none, and then the whole picture is removed. Adds the
/// length that the text before the field has when it is formatted to `copied`: single quotes
/// protect letters, and two of them inside such text are one.
std::wstring_view ConsumeField(std::wstring_view& picture, std::wstring_view letters,
                               std::size_t& copied);

/// Replaces the time stamp of a file name, if it has one, by the formatted instant: first the
/// milliseconds, then the time pictures (`GetTimeFormatW`), then, in the result, the date pictures
/// (`GetDateFormatW`), in the user's locale. A picture that cannot be formatted, or whose text has
/// 260 or more characters, is removed.
std::wstring ExpandTimeStamp(const std::wstring& name, const _SYSTEMTIME& time);

}  // namespace tarn
