#include "ui/hyperlink/link_colors.h"

#include <cwctype>
#include <limits>
#include <string>

namespace tarn {
namespace {

constexpr std::uint32_t kText = 1;            // REG_SZ
constexpr std::uint32_t kExpandableText = 2;  // REG_EXPAND_SZ

// Parses a number at the start of a text as the C library does: white space, a sign, digits. A
// number out of range becomes the nearest in range.
std::int32_t DecimalOf(std::wstring_view text) {
    while (!text.empty() && std::iswspace(static_cast<std::wint_t>(text.front())) != 0)
        text.remove_prefix(1);
    const bool negative = !text.empty() && text.front() == L'-';
    if (negative || (!text.empty() && text.front() == L'+')) text.remove_prefix(1);

    constexpr std::int64_t kLimit = std::int64_t{std::numeric_limits<std::int32_t>::max()} + 1;
    std::int64_t value = 0;
    for (const wchar_t c : text) {
        if (c < L'0' || c > L'9') break;
        value = value * 10 + (c - L'0');
        if (value > kLimit) value = kLimit;
    }
    if (negative) return static_cast<std::int32_t>(-value);
    return static_cast<std::int32_t>(value < kLimit ? value : kLimit - 1);
}

}  // namespace

std::optional<PackedColor> ParseLinkColor(std::wstring_view text) {
    const std::size_t first = text.find(L',');
    if (first == std::wstring_view::npos) return std::nullopt;
    const std::size_t second = text.find(L',', first + 1);
    if (second == std::wstring_view::npos || second + 1 == text.size()) return std::nullopt;

    // Blue alone is masked (docs/developer/compatibility.md).
    const auto red = static_cast<PackedColor>(DecimalOf(text.substr(0, first)));
    const auto green =
        static_cast<PackedColor>(DecimalOf(text.substr(first + 1, second - first - 1)));
    const auto blue = static_cast<PackedColor>(DecimalOf(text.substr(second + 1)));
    return red | (green << 8) | ((blue & 255) << 16);
}

std::optional<PackedColor> LinkColorOfValue(std::uint32_t type,
                                            std::span<const std::uint8_t> data) {
    if (type != kText && type != kExpandableText) return std::nullopt;
    if (data.empty() || data.size() % 2 != 0) return std::nullopt;
    if (data[data.size() - 1] != 0 || data[data.size() - 2] != 0) return std::nullopt;

    // Assembled from bytes, because a wide character is larger on other platforms.
    std::wstring text;
    for (std::size_t at = 0; at < data.size(); at += 2) {
        const auto unit = static_cast<wchar_t>(data[at] | (data[at + 1] << 8));
        if (unit == L'\0') break;
        text.push_back(unit);
    }
    return ParseLinkColor(text);
}

}  // namespace tarn
