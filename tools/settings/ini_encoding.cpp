#include "tools/settings/ini_encoding.h"

#include <array>
#include <string_view>

#include "tools/common/ascii.h"
#include "tools/common/text_encoding.h"
#include "tools/common/whole_file.h"

namespace tarn::tools {
namespace {

// The characters of Windows-1252 from 0x80 to 0x9F, where it differs from ISO 8859-1; 0 where it is
// undefined.
constexpr std::array<char16_t, 32> kWindows1252 = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

std::wstring DecodeUtf16(std::span<const std::byte> bytes, bool bigEndian) {
    std::u16string text;
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
        const auto low = static_cast<unsigned>(bytes[at + (bigEndian ? 1 : 0)]);
        const auto high = static_cast<unsigned>(bytes[at + (bigEndian ? 0 : 1)]);
        text += static_cast<char16_t>(high << 8 | low);
    }
    return WideOf(Utf8Of(std::u16string_view(text)));
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

std::wstring DecodeCodePage(std::span<const std::byte> bytes) {
    std::wstring text;
    for (const std::byte byte : bytes) {
        const auto code = static_cast<unsigned>(byte);
        const bool isSpecial = code >= 0x80 && code < 0xA0 && kWindows1252[code - 0x80] != 0;
        text += static_cast<wchar_t>(isSpecial ? kWindows1252[code - 0x80] : code);
    }
    return text;
}

// ASCII letters in UTF-16 have a zero in every second byte.
bool LooksLikeUtf16(std::span<const std::byte> bytes) {
    std::size_t zeros = 0;
    for (std::size_t at = 1; at < bytes.size(); at += 2) zeros += bytes[at] == std::byte{0};
    return bytes.size() >= 4 && zeros * 4 > bytes.size();
}

// Every invalid sequence becomes U+FFFD, which is encoded differently.
bool IsUtf8(std::string_view text) {
    return Utf8Of(WideOf(text)) == text;
}

}  // namespace

DecodedIni DecodeIni(std::span<const std::byte> bytes) {
    using namespace std::string_view_literals;
    const std::string_view text = AsText(bytes);
    const bool isOdd = bytes.size() % 2 != 0;
    if (text.starts_with("\xFF\xFE\0\0"sv)) {
        return {IniEncoding::Utf32, DecodeUtf32(bytes.subspan(4)), false};
    }
    if (text.starts_with("\xFF\xFE"sv)) {
        return {IniEncoding::Utf16, DecodeUtf16(bytes.subspan(2), false), isOdd};
    }
    if (text.starts_with("\xFE\xFF"sv)) {
        return {IniEncoding::Utf16BigEndian, DecodeUtf16(bytes.subspan(2), true), isOdd};
    }
    if (text.starts_with("\xEF\xBB\xBF"sv)) {
        return {IniEncoding::Utf8WithMark, WideOf(text.substr(3)), false};
    }
    if (LooksLikeUtf16(bytes)) {
        return {IniEncoding::Utf16WithoutMark, DecodeUtf16(bytes, false), isOdd};
    }
    if (IsAscii(text)) return {IniEncoding::Ascii, WideOf(text), false};
    if (IsUtf8(text)) return {IniEncoding::Utf8, WideOf(text), false};
    return {IniEncoding::CodePage, DecodeCodePage(bytes), false};
}

}  // namespace tarn::tools
