#include "tools/settings/ini_encoding.h"

#include <algorithm>
#include <string_view>

#include "tools/common/text_encoding.h"

namespace tarn::tools {
namespace {

bool BeginsWith(std::span<const std::byte> bytes, std::string_view mark) {
    return bytes.size() >= mark.size() &&
           std::equal(mark.begin(), mark.end(), bytes.begin(),
                      [](char a, std::byte b) { return static_cast<std::byte>(a) == b; });
}

std::string_view AsText(std::span<const std::byte> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

// Through UTF-8, so that pairs of surrogates become one character where those are wide enough.
std::wstring DecodeUtf16(std::span<const std::byte> bytes, bool bigEndian) {
    std::string utf8;
    char32_t high = 0;
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
        const auto first = static_cast<char32_t>(bytes[at]);
        const auto second = static_cast<char32_t>(bytes[at + 1]);
        const char32_t unit = bigEndian ? first << 8 | second : second << 8 | first;
        if (high != 0 && unit >= 0xDC00 && unit <= 0xDFFF) {
            AppendUtf8(utf8, 0x10000 + ((high - 0xD800) << 10) + (unit - 0xDC00));
            high = 0;
            continue;
        }
        if (high != 0) AppendUtf8(utf8, 0xFFFD);
        high = unit >= 0xD800 && unit <= 0xDBFF ? unit : 0;
        if (high == 0) AppendUtf8(utf8, unit >= 0xDC00 && unit <= 0xDFFF ? 0xFFFD : unit);
    }
    if (high != 0) AppendUtf8(utf8, 0xFFFD);
    return WideOf(utf8);
}

std::wstring DecodeUtf32(std::span<const std::byte> bytes) {
    std::string utf8;
    for (std::size_t at = 0; at + 3 < bytes.size(); at += 4) {
        const auto unit =
            static_cast<char32_t>(bytes[at]) | static_cast<char32_t>(bytes[at + 1]) << 8 |
            static_cast<char32_t>(bytes[at + 2]) << 16 | static_cast<char32_t>(bytes[at + 3]) << 24;
        const bool isCharacter = unit <= 0x10FFFF && (unit < 0xD800 || unit > 0xDFFF);
        AppendUtf8(utf8, isCharacter ? unit : 0xFFFD);
    }
    return WideOf(utf8);
}

// Western European letters stand for themselves, which is enough to point at them.
std::wstring DecodeCodePage(std::span<const std::byte> bytes) {
    std::wstring text;
    for (const std::byte byte : bytes) text += static_cast<wchar_t>(byte);
    return text;
}

// Latin letters in UTF-16 have a zero in every second byte.
bool LooksLikeUtf16(std::span<const std::byte> bytes) {
    std::size_t zeros = 0;
    for (std::size_t at = 1; at < bytes.size(); at += 2) zeros += bytes[at] == std::byte{0};
    return bytes.size() >= 4 && zeros * 4 > bytes.size();
}

bool IsUtf8(std::span<const std::byte> bytes) {
    const std::string_view text = AsText(bytes);
    return Utf8Of(WideOf(text)) == text;
}

}  // namespace

DecodedIni DecodeIni(std::span<const std::byte> bytes) {
    using namespace std::string_view_literals;
    const bool isOdd = bytes.size() % 2 != 0;
    if (BeginsWith(bytes, "\xFF\xFE\0\0"sv)) {
        return {IniEncoding::kUtf32, DecodeUtf32(bytes.subspan(4)), false};
    }
    if (BeginsWith(bytes, "\xFF\xFE"sv)) {
        return {IniEncoding::kUtf16, DecodeUtf16(bytes.subspan(2), false), isOdd};
    }
    if (BeginsWith(bytes, "\xFE\xFF"sv)) {
        return {IniEncoding::kUtf16BigEndian, DecodeUtf16(bytes.subspan(2), true), isOdd};
    }
    if (BeginsWith(bytes, "\xEF\xBB\xBF"sv)) {
        return {IniEncoding::kUtf8WithMark, WideOf(AsText(bytes.subspan(3))), false};
    }
    if (LooksLikeUtf16(bytes)) {
        return {IniEncoding::kUtf16WithoutMark, DecodeUtf16(bytes, false), isOdd};
    }
    const bool isAscii = std::all_of(bytes.begin(), bytes.end(),
                                     [](std::byte byte) { return byte < std::byte{0x80}; });
    if (isAscii) return {IniEncoding::kAscii, WideOf(AsText(bytes)), false};
    if (IsUtf8(bytes)) return {IniEncoding::kUtf8, WideOf(AsText(bytes)), false};
    return {IniEncoding::kCodePage, DecodeCodePage(bytes), false};
}

}  // namespace tarn::tools
