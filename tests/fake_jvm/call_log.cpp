#include "tests/fake_jvm/call_log.h"

#include <cstdio>

#include "base/windows.h"

namespace fake_jvm {

namespace {

bool IsHighSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}
bool IsLowSurrogate(char16_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

std::string Escaped(unsigned unit) {
    char text[8];
    std::snprintf(text, sizeof text, "\\u%04X", unit & 0xFFFFU);
    return text;
}

}  // namespace

bool ReadEnvironment(const wchar_t* name, std::wstring& value) {
    // The maximum length of a variable's value.
    value.resize(32768);
    SetLastError(ERROR_SUCCESS);
    const DWORD length =
        GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size()));
    const bool isSet = length != 0 || GetLastError() == ERROR_SUCCESS;
    value.resize(length);
    return isSet;
}

void Log(std::string_view text) {
    std::wstring path;
    if (!ReadEnvironment(L"FAKE_JVM_LOG", path) || path.empty()) return;
    const HANDLE file =
        CreateFileW(path.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                    OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return;
    std::string line = std::to_string(GetCurrentThreadId());
    line += '\t';
    line += text;
    line += '\n';
    DWORD written = 0;
    WriteFile(file, line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
    CloseHandle(file);
}

void LogViolation(std::string_view text) {
    Log("VIOLATION " + std::string(text));
}

std::string QuoteBytes(std::string_view bytes) {
    std::string quoted = "\"";
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        if (code < 0x20 || code >= 0x7F) {
            char text[8];
            std::snprintf(text, sizeof text, "\\x%02X", code);
            quoted += text;
        } else {
            quoted += byte;
        }
    }
    return quoted + '"';
}

std::string ToUtf8(std::u16string_view text) {
    const auto* const wide = reinterpret_cast<const wchar_t*>(text.data());
    const int units = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_UTF8, 0, wide, units, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide, units, bytes.data(), size, nullptr, nullptr);
    return bytes;
}

std::u16string FromUtf8(std::string_view text) {
    const int bytes = static_cast<int>(text.size());
    const int size = MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, nullptr, 0);
    std::u16string wide(static_cast<std::size_t>(size), u'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, reinterpret_cast<wchar_t*>(wide.data()),
                        size);
    return wide;
}

std::string QuoteText(std::u16string_view text) {
    std::string quoted = "\"";
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        if (unit == u'"' || unit == u'\\') {
            quoted += '\\';
            quoted += static_cast<char>(unit);
        } else if (unit < 0x20) {
            quoted += Escaped(unit);
        } else if (IsHighSurrogate(unit) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
            quoted += ToUtf8(text.substr(i, 2));
            ++i;
        } else if (IsHighSurrogate(unit) || IsLowSurrogate(unit)) {
            quoted += Escaped(unit);
        } else {
            quoted += ToUtf8(text.substr(i, 1));
        }
    }
    return quoted + '"';
}

void LogVariable(const wchar_t* name, const char* nameInLog) {
    std::wstring value;
    const bool isSet = ReadEnvironment(name, value);
    Log(std::string("environment ") + nameInLog + '=' +
        (isSet ? QuoteText(std::u16string(value.begin(), value.end())) : "(not set)"));
}

void LogErrorMode(std::string_view place) {
    char text[64];
    std::snprintf(text, sizeof text, ": thread 0x%lx process 0x%x", GetThreadErrorMode(),
                  GetErrorMode());
    Log("error mode of " + std::string(place) + text);
}

}  // namespace fake_jvm
