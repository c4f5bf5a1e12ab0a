#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace tarn {

// Comparing and trimming.

/// Returns whether two texts are equal, treating 'A' to 'Z' as 'a' to 'z'. Only ASCII letters are
/// folded, so that the meaning of a keyword does not depend on the user's locale.
bool EqualsIgnoringCase(std::wstring_view a, std::wstring_view b);

/// Removes white space at both ends. White space is what `iswspace` accepts; on Windows this
/// includes the no-break space and the ideographic space.
std::wstring_view TrimWhiteSpace(std::wstring_view text);

// Building and splitting.

/// Returns the text with every `from` replaced by `to`.
std::wstring ReplaceAll(std::wstring_view text, wchar_t from, wchar_t to);

/// Returns the text before the last `mark`, or the whole text when it contains none.
std::wstring_view CutAtLast(std::wstring_view text, wchar_t mark);

/// Appends `ending` unless the text already ends with it.
std::wstring EnsureTrailing(std::wstring_view text, wchar_t ending);

/// Splits at every `separator`. Empty pieces are kept and nothing is trimmed; an empty text has no
/// pieces.
std::vector<std::wstring> Split(std::wstring_view text, wchar_t separator);

// Formatting. `std::to_wstring` and the printf family are not used: they add 43 KB to the launcher.

/// Returns the number in signed decimal notation.
std::wstring DecimalText(std::int32_t number);

/// An argument of `FormatText`: a text for `%s` or a number for `%d`. It refers to the text it is
/// constructed from and must not outlive the call.
class FormatValue {
  public:
    FormatValue(std::wstring_view text) : text_(text) {}
    FormatValue(const std::wstring& text) : text_(text) {}
    FormatValue(const wchar_t* text) : text_(text) {}
    FormatValue(std::int32_t number) : number_(number), isNumber_(true) {}

    /// Writes the text, or the number in decimal notation, to `buffer` unless that is null. Returns
    /// its length in characters.
    std::size_t Write(wchar_t* buffer) const;

  private:
    std::wstring_view text_;
    std::int32_t number_ = 0;
    bool isNumber_ = false;
};

/// Replaces each `%s` and `%d` by the next value, in order, and `%%` by "%". The format may come
/// from an edited resource and is not trusted: placeholders without a value become empty, surplus
/// values are ignored, and any other "%" is copied.
std::wstring FormatText(std::wstring_view format, std::initializer_list<FormatValue> values);

/// Formats like `FormatText` into `buffer`, without allocating and without a terminator. Returns
/// the length in characters; a null buffer only measures.
std::size_t FormatInto(wchar_t* buffer, std::wstring_view format,
                       std::initializer_list<FormatValue> values);

// Reading.

/// Initial size, in characters, of the buffer in `ReadGrowing`.
inline constexpr std::size_t kFirstBufferSize = 256;

/// Reads a text of unknown length. `read(buffer, size)` writes at most `size` characters and
/// returns the number of characters written. A result of `size - spare` or more may be truncated:
/// the buffer is doubled and the text is read again.
template <typename Read>
std::wstring ReadGrowing(std::size_t spare, Read read) {
    std::wstring buffer;
    for (std::size_t size = kFirstBufferSize;; size *= 2) {
        buffer.resize(size);
        const std::size_t length = read(buffer.data(), size);
        if (length + spare < size) {
            buffer.resize(length);
            return buffer;
        }
    }
}

}  // namespace tarn
