#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace tarn {

/// One value for a message's `%s` or `%d`. Refers to the text that it is made of, so it lives as
/// long as one call.
class FormatValue {
  public:
    FormatValue(std::wstring_view text) : text_(text) {}
    FormatValue(const std::wstring& text) : text_(text) {}
    FormatValue(const wchar_t* text) : text_(text) {}
    /// Written as a signed 32-bit decimal.
    FormatValue(std::int32_t number) : number_(number), isNumber_(true) {}

    /// Writes the value to `buffer` unless that is null and returns its length in characters.
    std::size_t Write(wchar_t* buffer) const;

  private:
    std::wstring_view text_;
    std::int32_t number_ = 0;
    bool isNumber_ = false;
};

/// Fills a message: each `%s` and `%d`, in order, becomes the next value; `%%` becomes "%". A
/// message can come from a resource that somebody edited, so one with more places than values
/// leaves the rest empty, and any other "%" stands for itself.
std::wstring FormatText(std::wstring_view format, std::initializer_list<FormatValue> values);

/// Does the same into `buffer`, without allocating and without a terminator, and returns the length
/// of the result in characters. Null only measures.
std::size_t FormatInto(wchar_t* buffer, std::wstring_view format,
                       std::initializer_list<FormatValue> values);

}  // namespace tarn
