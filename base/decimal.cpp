#include "base/decimal.h"

namespace tarn {

std::wstring DecimalText(std::int32_t number) {
    // A sign and the ten digits of 2^31.
    wchar_t digits[11];
    wchar_t* const end = digits + 11;
    wchar_t* first = end;
    // Unsigned, for the smallest number has no positive counterpart.
    std::uint32_t rest = static_cast<std::uint32_t>(number);
    if (number < 0) rest = 0 - rest;
    do {
        *--first = static_cast<wchar_t>(L'0' + rest % 10);
        rest /= 10;
    } while (rest != 0);
    if (number < 0) *--first = L'-';
    return std::wstring(first, end);
}

}  // namespace tarn
