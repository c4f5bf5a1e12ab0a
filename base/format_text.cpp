#include "base/format_text.h"

#include <algorithm>

#include "base/decimal.h"

namespace tarn {

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
