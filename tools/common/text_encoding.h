#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace tarn::tools {

/// Converts between the companion's UTF-8 and the wide characters of the code shared with the
/// launcher: UTF-16 on Windows, UTF-32 elsewhere. Invalid UTF-8 becomes U+FFFD.
std::wstring WideOf(std::string_view utf8);

/// The opposite direction. A lone surrogate becomes U+FFFD.
std::string Utf8Of(std::wstring_view wide);

/// UTF-16 code units as files contain them, on every platform; and back.
std::u16string Utf16Of(std::string_view utf8);
std::string Utf8Of(std::u16string_view utf16);

/// Converts between UTF-8 and a path, independently of the system's code page.
std::filesystem::path PathOf(std::string_view utf8);
std::string Utf8OfPath(const std::filesystem::path& path);

/// Appends the UTF-8 encoding of one character.
void AppendUtf8(std::string& text, char32_t character);

}  // namespace tarn::tools
