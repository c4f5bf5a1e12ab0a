#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarn::test {

std::string ToUtf8(std::wstring_view text);
std::wstring FromUtf8(std::string_view text);

/// UTF-16 with a byte-order mark, the only encoding in which the profile functions read any text.
std::string Utf16File(std::wstring_view text);

/// The text in the 8-bit code page of Windows (`CP_ACP`), as editors without UTF-16 write it.
std::string AnsiFile(std::wstring_view text);

/// The text as the JVM receives it, in the log's notation for bytes: in the code page of the
/// system's default locale, in quotes, everything but printable ASCII as `\xNN`.
std::string AnsiInLog(std::wstring_view text);

/// The text in the log's notation for a Java string or a variable: UTF-8 in quotes, quotes and
/// backslashes escaped, control characters as `\uXXXX`.
std::string TextInLog(std::wstring_view text);

/// Repeats the text.
std::wstring Repeated(std::wstring_view text, std::size_t times);

/// The bytes of the file; empty when it cannot be read.
std::string ReadFileBytes(const std::wstring& path);
void WriteFileBytes(const std::wstring& path, std::string_view bytes);

std::vector<std::string> SplitLines(std::string_view text);

/// The fields of a line that are separated by tabs. An empty last field is omitted.
std::vector<std::string> SplitFields(const std::string& line);

}  // namespace tarn::test
