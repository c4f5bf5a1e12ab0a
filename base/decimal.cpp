#include "base/decimal.h"

namespace tarn {

Decimal::Decimal(std::int32_t number) {
    // Unsigned, for the smallest number has no positive counterpart.
    std::uint32_t rest = static_cast<std::uint32_t>(number);
    if (number < 0) rest = 0 - rest;
    do {
        *--first_ = static_cast<wchar_t>(L'0' + rest % 10);
        rest /= 10;
    } while (rest != 0);
    if (number < 0) *--first_ = L'-';
}

std::wstring DecimalText(std::int32_t number) {
    return std::wstring(Decimal(number).text());
}

}  // namespace tarn
