// The numbers in "Virtual Machine Parameters", and the stack size that they specify.

#include <vector>

#include "fuzz/fuzz_input.h"
#include "jvm/vm_parameters.h"

namespace {

using tarn::fuzz::Require;

bool IsDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

tarn::ScannedNumbers NaiveScan(const std::wstring& text) {
    tarn::ScannedNumbers result;
    while (result.prefixLength < text.size() && text[result.prefixLength] != L':' &&
           !IsDigit(text[result.prefixLength])) {
        ++result.prefixLength;
    }
    if (result.prefixLength == text.size()) return result;
    // A model: splits at the colons first, then keeps the digits of each piece.
    std::wstring body = text.substr(result.prefixLength);
    body.back() = L':';
    std::wstring piece;
    for (const wchar_t c : body) {
        if (c != L':') {
            piece += c;
            continue;
        }
        std::uint64_t number = 0;
        for (const wchar_t digit : piece)
            if (IsDigit(digit)) number = number * 10 + static_cast<std::uint64_t>(digit - L'0');
        result.numbers.push_back(number);
        piece.clear();
    }
    return result;
}

unsigned ShiftOf(wchar_t unit) {
    switch (unit) {
        case L'k':
        case L'K':
            return 10;
        case L'm':
        case L'M':
            return 20;
        case L'g':
        case L'G':
            return 30;
        default:
            return 0;
    }
}

void CheckScan(const std::wstring& text) {
    const tarn::ScannedNumbers scanned = tarn::ScanNumbers(text);
    const tarn::ScannedNumbers expected = NaiveScan(text);
    Require(scanned.prefixLength == expected.prefixLength && scanned.numbers == expected.numbers);

    const std::uint64_t stack = tarn::StackSizeOf(L"-Xss" + text);
    const bool isSize = expected.prefixLength == 0 && expected.numbers.size() == 1;
    Require(stack == (isSize ? expected.numbers[0] << ShiftOf(text.back()) : 0));
}

// Formatted numbers are read back unchanged.
void CheckRoundTrip(tarn::fuzz::FuzzInput input) {
    std::vector<std::uint64_t> numbers;
    std::wstring text = L"-Xmx";
    for (std::size_t count = input.TakeNumber<std::uint8_t>() % 5 + 1u; count > 0; --count) {
        numbers.push_back(input.TakeNumber<std::uint64_t>());
        if (numbers.size() > 1) text += L':';
        text += std::to_wstring(numbers.back());
    }
    const tarn::ScannedNumbers scanned = tarn::ScanNumbers(text + L'p');
    Require(scanned.prefixLength == 4 && scanned.numbers == numbers);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    CheckScan(tarn::fuzz::FuzzInput(data, size).TakeText());
    CheckRoundTrip(tarn::fuzz::FuzzInput(data, size));
    return 0;
}
