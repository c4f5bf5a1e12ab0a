#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace tarn::tools {

/// The tools work in UTF-8; the launcher's own code, which they share, in wide characters: UTF-16
/// on Windows, UTF-32 elsewhere. What is no valid UTF-8 becomes U+FFFD.
std::wstring WideOf(std::string_view utf8);

/// The opposite direction. A lone half of a surrogate pair becomes U+FFFD.
std::string Utf8Of(std::wstring_view wide);

/// UTF-16 in numbers of 16 bits, as it stands in files, whatever the platform; and back.
std::u16string Utf16Of(std::string_view utf8);
std::string Utf8Of(std::u16string_view utf16);

/// A path from what was typed, and back, whatever the platform's code page is.
std::filesystem::path PathOf(std::string_view utf8);
std::string Utf8OfPath(const std::filesystem::path& path);

/// Appends one character in UTF-8.
void AppendUtf8(std::string& text, char32_t character);

}  // namespace tarn::tools
