#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarn::test {

std::string ToUtf8(std::wstring_view text);
std::wstring FromUtf8(std::string_view text);

/// UTF-16 with its byte-order mark, as the profile functions like it best.
std::string Utf16File(std::wstring_view text);

/// The text as the JVM gets it, in the way the log of the scripted jvm.dll shows bytes: in the
/// code page of the system's default locale, in quotes, all but printable ASCII as `\xNN`.
std::string AnsiInLog(std::wstring_view text);

/// The text the way the log shows a Java string or a variable: UTF-8 in quotes, quotes and
/// backslashes escaped, control characters as `\uXXXX`.
std::string TextInLog(std::wstring_view text);

/// As many times the text.
std::wstring Repeated(std::wstring_view text, std::size_t times);

/// The files' bytes; empty when it cannot be read.
std::string ReadFileBytes(const std::wstring& path);
void WriteFileBytes(const std::wstring& path, std::string_view bytes);

std::vector<std::string> SplitLines(std::string_view text);

}  // namespace tarn::test
