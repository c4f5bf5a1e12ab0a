#include "tools/common/text_encoding.h"

namespace tarn::tools {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsSurrogate(char32_t character) {
    return character >= 0xD800 && character <= 0xDFFF;
}

bool IsHighSurrogate(char32_t character) {
    return character >= 0xD800 && character <= 0xDBFF;
}

// Removes and returns the first character of `text`; of an invalid sequence, its first byte as
// U+FFFD.
char32_t ConsumeCharacter(std::string_view& text) {
    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(text[at]); };
    const unsigned char first = byte(0);
    const std::size_t length = first < 0x80             ? 1
                               : (first & 0xE0) == 0xC0 ? 2
                               : (first & 0xF0) == 0xE0 ? 3
                               : (first & 0xF8) == 0xF0 ? 4
                                                        : 0;
    constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    constexpr unsigned char kFirstBits[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
    char32_t character = kReplacement;
    if (length != 0 && length <= text.size()) {
        character = first & kFirstBits[length];
        for (std::size_t at = 1; at < length; ++at) {
            if ((byte(at) & 0xC0) != 0x80) {
                text.remove_prefix(1);
                return kReplacement;
            }
            character = (character << 6) | (byte(at) & 0x3FU);
        }
        if (character >= kSmallest[length] && character <= 0x10FFFF && !IsSurrogate(character)) {
            text.remove_prefix(length);
            return character;
        }
    }
    text.remove_prefix(1);
    return kReplacement;
}

template <typename Unit>
std::basic_string<Unit> FromUtf8(std::string_view utf8) {
    std::basic_string<Unit> text;
    text.reserve(utf8.size());
    while (!utf8.empty()) {
        char32_t character = ConsumeCharacter(utf8);
        if (sizeof(Unit) == 2 && character > 0xFFFF) {
            character -= 0x10000;
            text += static_cast<Unit>(0xD800 + (character >> 10));
            text += static_cast<Unit>(0xDC00 + (character & 0x3FF));
        } else {
            text += static_cast<Unit>(character);
        }
    }
    return text;
}

template <typename Unit>
std::string ToUtf8(std::basic_string_view<Unit> text) {
    std::string utf8;
    utf8.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        char32_t character = static_cast<char32_t>(text[at]);
        if constexpr (sizeof(Unit) == 2) {
            const char32_t next = at + 1 < text.size() ? static_cast<char32_t>(text[at + 1]) : 0;
            if (IsHighSurrogate(character) && IsSurrogate(next) && !IsHighSurrogate(next)) {
                character = 0x10000 + ((character - 0xD800) << 10) + (next - 0xDC00);
                ++at;
            }
        }
        AppendUtf8(utf8, IsSurrogate(character) || character > 0x10FFFF ? kReplacement : character);
    }
    return utf8;
}

}  // namespace

void AppendUtf8(std::string& text, char32_t character) {
    const auto add = [&](char32_t byte) { text += static_cast<char>(byte); };
    if (character < 0x80) {
        add(character);
    } else if (character < 0x800) {
        add(0xC0 | (character >> 6));
        add(0x80 | (character & 0x3F));
    } else if (character < 0x10000) {
        add(0xE0 | (character >> 12));
        add(0x80 | ((character >> 6) & 0x3F));
        add(0x80 | (character & 0x3F));
    } else {
        add(0xF0 | (character >> 18));
        add(0x80 | ((character >> 12) & 0x3F));
        add(0x80 | ((character >> 6) & 0x3F));
        add(0x80 | (character & 0x3F));
    }
}

std::wstring WideOf(std::string_view utf8) {
    return FromUtf8<wchar_t>(utf8);
}

std::string Utf8Of(std::wstring_view wide) {
    return ToUtf8(wide);
}

std::u16string Utf16Of(std::string_view utf8) {
    return FromUtf8<char16_t>(utf8);
}

std::string Utf8Of(std::u16string_view utf16) {
    return ToUtf8(utf16);
}

std::filesystem::path PathOf(std::string_view utf8) {
    return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}

std::string Utf8OfPath(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return std::string(text.begin(), text.end());
}

}  // namespace tarn::tools
