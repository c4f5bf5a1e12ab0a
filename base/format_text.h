#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "base/decimal.h"

namespace tarn {

/// One value for a message's `%s` or `%d`.
class FormatValue {
  public:
    FormatValue(std::wstring_view text) : text_(text) {}
    FormatValue(const std::wstring& text) : text_(text) {}
    FormatValue(const wchar_t* text) : text_(text) {}
    /// Written as a signed 32-bit decimal.
    FormatValue(std::int32_t number) : numberText_(DecimalText(number)) { text_ = numberText_; }
    FormatValue(const FormatValue&) = delete;
    FormatValue& operator=(const FormatValue&) = delete;

    std::wstring_view text() const { return text_; }

  private:
    std::wstring_view text_;
    std::wstring numberText_;
};

/// Fills a message: each `%s` and `%d`, in order, becomes the next value; `%%` becomes "%". A
/// message can come from a resource that somebody edited, so one with more places than values
/// leaves the rest empty, and any other "%" stands for itself.
std::wstring FormatText(std::wstring_view format, std::initializer_list<FormatValue> values);

}  // namespace tarn
