// A link's colours come from registry values, which any program may have written.

#include <algorithm>
#include <cwchar>
#include <limits>
#include <optional>
#include <span>
#include <vector>

#include "fuzz/fuzz_input.h"
#include "ui/hyperlink/link_colors.h"

namespace {

using tarn::fuzz::Require;

// The C library's conversion, which has more bits here.
std::uint32_t NaiveNumber(const std::wstring& text) {
    const long number = std::wcstol(text.c_str(), nullptr, 10);
    return static_cast<std::uint32_t>(std::clamp<long>(number,
                                                       std::numeric_limits<std::int32_t>::min(),
                                                       std::numeric_limits<std::int32_t>::max()));
}

std::optional<tarn::PackedColor> NaiveParse(const std::wstring& text) {
    std::vector<std::wstring> pieces(1);
    for (const wchar_t c : text) {
        if (c == L',' && pieces.size() < 3) {
            pieces.emplace_back();
        } else {
            pieces.back() += c;
        }
    }
    if (pieces.size() < 3 || pieces[2].empty()) return std::nullopt;
    return NaiveNumber(pieces[0]) | NaiveNumber(pieces[1]) << 8 |
           (NaiveNumber(pieces[2]) & 255) << 16;
}

void CheckValue(std::uint32_t type, const std::wstring& text) {
    std::vector<std::uint8_t> bytes;
    for (const wchar_t c : text) {
        bytes.push_back(static_cast<std::uint8_t>(c & 255));
        bytes.push_back(static_cast<std::uint8_t>(c >> 8));
    }
    const bool isText = type == 1 || type == 2;
    const std::wstring cut = text.substr(0, text.find(L'\0'));
    const bool isTerminated = !text.empty() && text.back() == L'\0';
    Require(tarn::LinkColorOfValue(type, bytes) ==
            (isText && isTerminated ? NaiveParse(cut) : std::nullopt));
    // With a terminator, any bytes count up to their first zero unit.
    bytes.insert(bytes.end(), 2, 0);
    Require(tarn::LinkColorOfValue(type, bytes) == (isText ? NaiveParse(cut) : std::nullopt));
    // With half a unit more or less, the value is not a text.
    bytes.pop_back();
    Require(!tarn::LinkColorOfValue(type, bytes));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tarn::fuzz::FuzzInput input(data, size);
    const auto type = input.TakeNumber<std::uint8_t>();
    const std::uint32_t red = input.TakeNumber<std::uint8_t>();
    const std::wstring text = input.TakeText();
    Require(tarn::ParseLinkColor(text) == NaiveParse(text));
    CheckValue(type % 4, text);

    const std::uint32_t green = type;
    const std::uint32_t blue = text.empty() ? 7 : static_cast<std::uint8_t>(text[0]);
    Require(tarn::ParseLinkColor(std::to_wstring(red) + L',' + std::to_wstring(green) + L',' +
                                 std::to_wstring(blue)) == (red | green << 8 | blue << 16));
    return 0;
}
