#include "base/text.h"

#include <algorithm>
#include <cwctype>

namespace tarn {
namespace {

wchar_t LowerAscii(wchar_t c) {
    return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c;
}

bool IsWhiteSpace(wchar_t c) {
    return std::iswspace(static_cast<std::wint_t>(c)) != 0;
}

/// A number in signed decimal notation, without an allocation.
class Decimal {
  public:
    explicit Decimal(std::int32_t number) {
        // Unsigned, because the smallest number has no positive counterpart.
        std::uint32_t rest = static_cast<std::uint32_t>(number);
        if (number < 0) rest = 0 - rest;
        do {
            *--first_ = static_cast<wchar_t>(L'0' + rest % 10);
            rest /= 10;
        } while (rest != 0);
        if (number < 0) *--first_ = L'-';
    }

    std::wstring_view text() const { return {first_, digits_ + kSize}; }

    Decimal(const Decimal&) = delete;
    Decimal& operator=(const Decimal&) = delete;

  private:
    static constexpr int kSize = 11;  // the sign and the ten digits of 2^31

    wchar_t digits_[kSize];
    wchar_t* first_ = digits_ + kSize;
};

}  // namespace

bool EqualsIgnoringCase(std::wstring_view a, std::wstring_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](wchar_t x, wchar_t y) { return LowerAscii(x) == LowerAscii(y); });
}

std::wstring_view TrimWhiteSpace(std::wstring_view text) {
    while (!text.empty() && IsWhiteSpace(text.front())) text.remove_prefix(1);
    while (!text.empty() && IsWhiteSpace(text.back())) text.remove_suffix(1);
    return text;
}

std::wstring ReplaceAll(std::wstring_view text, wchar_t from, wchar_t to) {
    std::wstring result(text);
    std::replace(result.begin(), result.end(), from, to);
    return result;
}

std::wstring_view CutAtLast(std::wstring_view text, wchar_t mark) {
    return text.substr(0, text.rfind(mark));
}

std::wstring EnsureTrailing(std::wstring_view text, wchar_t ending) {
    std::wstring result(text);
    if (result.empty() || result.back() != ending) result += ending;
    return result;
}

std::vector<std::wstring> Split(std::wstring_view text, wchar_t separator) {
    std::vector<std::wstring> pieces;
    if (text.empty()) return pieces;
    for (;;) {
        const std::size_t end = text.find(separator);
        pieces.emplace_back(text.substr(0, end));
        if (end == std::wstring_view::npos) return pieces;
        text.remove_prefix(end + 1);
    }
}

std::wstring DecimalText(std::int32_t number) {
    return std::wstring(Decimal(number).text());
}

std::size_t FormatValue::Write(wchar_t* buffer) const {
    const Decimal decimal(number_);
    const std::wstring_view text = isNumber_ ? decimal.text() : text_;
    if (buffer != nullptr) std::copy(text.begin(), text.end(), buffer);
    return text.size();
}

std::size_t FormatInto(wchar_t* buffer, std::wstring_view format,
                       std::initializer_list<FormatValue> values) {
    std::size_t length = 0;
    const auto write = [&](const FormatValue& value) {
        length += value.Write(buffer != nullptr ? buffer + length : nullptr);
    };
    const FormatValue* next = values.begin();
    for (std::size_t i = 0; i < format.size(); ++i) {
        const wchar_t form = format[i] == L'%' && i + 1 < format.size() ? format[i + 1] : L'\0';
        if (form == L's' || form == L'd') {
            if (next != values.end()) write(*next++);
            ++i;
        } else {
            write(format.substr(i, 1));
            if (form == L'%') ++i;
        }
    }
    return length;
}

std::wstring FormatText(std::wstring_view format, std::initializer_list<FormatValue> values) {
    std::wstring result;
    result.resize(FormatInto(nullptr, format, values));
    FormatInto(result.data(), format, values);
    return result;
}

}  // namespace tarn
