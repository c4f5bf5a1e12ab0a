#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace tarn {

/// Whether two texts are equal when 'A' to 'Z' count as 'a' to 'z'. The words that the settings
/// compare this way are plain ASCII, and a user's locale must not change what they mean.
bool EqualsIgnoringCase(std::wstring_view a, std::wstring_view b);

/// The text without the white space at both ends, as the C library's `iswspace` sees it: on
/// Windows that takes in the no-break and the ideographic blank.
std::wstring_view TrimWhiteSpace(std::wstring_view text);

/// The text with every `from` replaced by `to`.
std::wstring ReplaceAll(std::wstring_view text, wchar_t from, wchar_t to);

/// The text before the last `mark`; the whole text when there is none.
std::wstring_view CutAtLast(std::wstring_view text, wchar_t mark);

/// The texts one behind the other. A chain of `+` takes more code, and an allocation for each link.
std::wstring Concat(std::initializer_list<std::wstring_view> texts);

/// The text with `ending` put behind it unless it already ends so.
std::wstring EnsureTrailing(std::wstring_view text, wchar_t ending);

/// Splits at every `separator`, keeping empty pieces and trimming nothing; an empty text gives no
/// piece at all.
std::vector<std::wstring> Split(std::wstring_view text, wchar_t separator);

/// Whether a file name is absolute: its second character is ":" or it begins with two
/// backslashes.
bool IsAbsolutePath(std::wstring_view path);

/// The folder of a file: all up to and including the last backslash, empty when there is none.
std::wstring_view FolderOf(std::wstring_view path);

}  // namespace tarn
