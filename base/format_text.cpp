#include "base/format_text.h"

#include "base/decimal.h"

namespace tarn {

void FormatValue::AppendTo(std::wstring& text) const {
    if (isNumber_) {
        text += DecimalText(number_);
    } else {
        text += text_;
    }
}

std::wstring FormatText(std::wstring_view format, std::initializer_list<FormatValue> values) {
    std::wstring result;
    const FormatValue* next = values.begin();
    for (std::size_t i = 0; i < format.size(); ++i) {
        const wchar_t form = format[i] == L'%' && i + 1 < format.size() ? format[i + 1] : L'\0';
        if (form == L's' || form == L'd') {
            if (next != values.end()) (next++)->AppendTo(result);
            ++i;
        } else if (form == L'%') {
            result += L'%';
            ++i;
        } else {
            result += format[i];
        }
    }
    return result;
}

}  // namespace tarn
