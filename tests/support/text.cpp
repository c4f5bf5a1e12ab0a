#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <sstream>

#include "base/handles.h"

namespace tarn::test {

namespace {

std::string ToCodePage(UINT codePage, std::wstring_view text) {
    const std::wstring whole(text);
    const int units = static_cast<int>(whole.size());
    const int size =
        WideCharToMultiByte(codePage, 0, whole.c_str(), units, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(codePage, 0, whole.c_str(), units, bytes.data(), size, nullptr, nullptr);
    return bytes;
}

UINT AnsiCodePage() {
    UINT codePage = CP_ACP;
    GetLocaleInfoW(GetSystemDefaultLCID(), LOCALE_IDEFAULTANSICODEPAGE | LOCALE_RETURN_NUMBER,
                   reinterpret_cast<wchar_t*>(&codePage), sizeof codePage / sizeof(wchar_t));
    return codePage;
}

}  // namespace

std::string ToUtf8(std::wstring_view text) {
    return ToCodePage(CP_UTF8, text);
}

std::wstring FromUtf8(std::string_view text) {
    const std::string whole(text);
    const int bytes = static_cast<int>(whole.size());
    const int size = MultiByteToWideChar(CP_UTF8, 0, whole.c_str(), bytes, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, whole.c_str(), bytes, wide.data(), size);
    return wide;
}

std::string Utf16File(std::wstring_view text) {
    std::string bytes = "\xFF\xFE";
    bytes.append(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t));
    return bytes;
}

std::string AnsiFile(std::wstring_view text) {
    return ToCodePage(CP_ACP, text);
}

std::string AnsiInLog(std::wstring_view text) {
    std::string quoted = "\"";
    for (const char byte : ToCodePage(AnsiCodePage(), text)) {
        const auto code = static_cast<unsigned char>(byte);
        if (code >= 0x20 && code < 0x7F) {
            quoted += byte;
            continue;
        }
        char escape[8];
        std::snprintf(escape, sizeof escape, "\\x%02X", code);
        quoted += escape;
    }
    return quoted + '"';
}

std::string TextInLog(std::wstring_view text) {
    std::string quoted = "\"";
    for (const char byte : ToUtf8(text)) {
        if (const auto code = static_cast<unsigned char>(byte); code < 0x20) {
            char escape[8];
            std::snprintf(escape, sizeof escape, "\\u%04X", code);
            quoted += escape;
            continue;
        }
        if (byte == '"' || byte == '\\') quoted += '\\';
        quoted += byte;
    }
    return quoted + '"';
}

std::wstring Repeated(std::wstring_view text, std::size_t times) {
    std::wstring all;
    for (std::size_t i = 0; i < times; ++i) all += text;
    return all;
}

std::string ReadFileBytes(const std::wstring& path) {
    const UniqueFile file(CreateFileW(path.c_str(), GENERIC_READ,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                      nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) return {};
    std::string bytes(GetFileSize(file.get(), nullptr), '\0');
    DWORD read = 0;
    ReadFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr);
    bytes.resize(read);
    return bytes;
}

void WriteFileBytes(const std::wstring& path, std::string_view bytes) {
    const UniqueFile file(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                      FILE_ATTRIBUTE_NORMAL, nullptr));
    DWORD written = 0;
    const bool ok = file && WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()),
                                      &written, nullptr) != FALSE;
    ASSERT_TRUE(ok && written == bytes.size()) << "cannot write " << ToUtf8(path);
}

std::vector<std::string> SplitLines(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        lines.emplace_back(line);
        if (end == std::string_view::npos) break;
        text.remove_prefix(end + 1);
    }
    return lines;
}

std::vector<std::string> SplitFields(const std::string& line) {
    std::vector<std::string> fields;
    std::istringstream text(line);
    for (std::string field; std::getline(text, field, '\t');) fields.push_back(field);
    return fields;
}

}  // namespace tarn::test
