#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace tarn::tools {

/// Lower case for 'A' to 'Z' alone, for any character type: names and keywords compare the same in
/// every locale.
template <typename Char>
constexpr Char ToLowerAscii(Char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<Char>(letter - 'A' + 'a') : letter;
}

template <typename Char>
std::basic_string<Char> ToLowerAscii(std::basic_string<Char> text) {
    for (Char& letter : text) letter = ToLowerAscii(letter);
    return text;
}

inline std::string ToLowerAscii(std::string_view text) {
    return ToLowerAscii(std::string(text));
}

inline std::wstring ToLowerAscii(std::wstring_view text) {
    return ToLowerAscii(std::wstring(text));
}

/// Whether every character is below U+0080.
template <typename Char>
bool IsAscii(std::basic_string_view<Char> text) {
    return std::all_of(text.begin(), text.end(), [](Char letter) {
        return static_cast<std::make_unsigned_t<Char>>(letter) < 0x80;
    });
}

}  // namespace tarn::tools
