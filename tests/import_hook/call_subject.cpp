#include "tests/import_hook/call_subject.h"

#include <cwchar>
#include <string_view>

#include "base/windows.h"

namespace import_hook {

namespace {

enum class Form {
    Text,          ///< UTF-16 up to its terminator, or a resource's number in place of the pointer
    AnsiText,      ///< the same in the thread's code page; a number for exports by ordinal
    CountedText,   ///< UTF-16, its length in characters in the next argument, -1: terminated
    FirstMessage,  ///< `MSG`: the number of the message
    Number,        ///< 32 bits
    Message,       ///< a window message; the numbers of registered ones vary
};

struct Argument {
    std::string_view function;
    unsigned index;
    Form form;
};

// Arguments of one function are listed in the order in which they are printed.
constexpr Argument kArguments[] = {
    {"CallWindowProcW", 2, Form::Message},
    {"CopyImage", 1, Form::Number},
    {"CreateDirectoryW", 0, Form::Text},
    {"CreateEventW", 3, Form::Text},
    {"CreateFileMappingW", 5, Form::Text},
    {"CreateFileW", 0, Form::Text},
    {"CreateMutexW", 2, Form::Text},
    {"CreateProcessW", 0, Form::Text},
    {"CreateWindowExW", 1, Form::Text},
    {"DefWindowProcW", 1, Form::Message},
    {"DeleteFileW", 0, Form::Text},
    {"DialogBoxParamW", 1, Form::Text},
    {"DispatchMessageW", 0, Form::FirstMessage},
    {"ExpandEnvironmentStringsW", 0, Form::Text},
    {"FindFirstFileW", 0, Form::Text},
    {"FindResourceW", 1, Form::Text},
    {"FindResourceW", 2, Form::Text},
    {"GdipCreateBitmapFromFile", 0, Form::Text},
    {"GetDlgItem", 1, Form::Number},
    {"GetEnvironmentVariableW", 0, Form::Text},
    {"GetFileAttributesW", 0, Form::Text},
    {"GetFullPathNameW", 0, Form::Text},
    {"GetModuleHandleW", 0, Form::Text},
    {"GetPrivateProfileSectionNamesW", 2, Form::Text},
    {"GetPrivateProfileStringW", 0, Form::Text},
    {"GetPrivateProfileStringW", 1, Form::Text},
    {"GetPrivateProfileStringW", 5, Form::Text},
    {"GetProcAddress", 1, Form::AnsiText},
    {"GetPropW", 1, Form::Text},
    {"GetSystemMetrics", 0, Form::Number},
    {"GetWindow", 1, Form::Number},
    {"GetWindowLongPtrW", 1, Form::Number},
    {"LoadCursorW", 1, Form::Text},
    {"LoadIconW", 1, Form::Text},
    {"LoadLibraryExW", 0, Form::Text},
    {"LoadLibraryW", 0, Form::Text},
    {"LoadStringW", 1, Form::Number},
    {"MoveFileExW", 0, Form::Text},
    {"MoveFileExW", 1, Form::Text},
    {"OpenEventW", 2, Form::Text},
    {"OpenFileMappingW", 2, Form::Text},
    {"OpenMutexW", 2, Form::Text},
    {"PostMessageW", 1, Form::Message},
    {"PostThreadMessageW", 1, Form::Message},
    {"RegEnumKeyExW", 1, Form::Number},
    {"RegOpenKeyExW", 1, Form::Text},
    {"RegQueryValueExW", 1, Form::Text},
    {"RegisterWindowMessageW", 0, Form::Text},
    {"RemovePropW", 1, Form::Text},
    {"ReplaceFileW", 0, Form::Text},
    {"ReplaceFileW", 1, Form::Text},
    {"SendDlgItemMessageW", 1, Form::Number},
    {"SendDlgItemMessageW", 2, Form::Message},
    {"SendMessageW", 1, Form::Message},
    {"SetCurrentDirectoryW", 0, Form::Text},
    {"SetDlgItemTextW", 1, Form::Number},
    {"SetEnvironmentVariableW", 0, Form::Text},
    {"SetFileAttributesW", 0, Form::Text},
    {"SetPropW", 1, Form::Text},
    {"SetWindowLongPtrW", 1, Form::Number},
    {"WideCharToMultiByte", 2, Form::CountedText},
    {"WritePrivateProfileStringW", 0, Form::Text},
    {"WritePrivateProfileStringW", 1, Form::Text},
    {"WritePrivateProfileStringW", 3, Form::Text},
};

constexpr std::uint64_t kFirstRegisteredMessage = 0xC000;

bool IsPointer(std::uint64_t argument) {
    return argument > 0xFFFF;
}

std::string Counted(const std::uint64_t* arguments) {
    const auto* const text = reinterpret_cast<const wchar_t*>(arguments[0]);
    const auto length = static_cast<std::int32_t>(arguments[1]);
    if (length < 0) return Utf8(text);
    return Utf8({text, static_cast<std::size_t>(length)});
}

std::string Printed(const std::uint64_t* arguments, Form form) {
    const std::uint64_t value = arguments[0];
    switch (form) {
        case Form::Text:
            if (IsPointer(value)) return Utf8(reinterpret_cast<const wchar_t*>(value));
            break;
        case Form::AnsiText:
            if (IsPointer(value)) return reinterpret_cast<const char*>(value);
            break;
        case Form::CountedText:
            if (IsPointer(value)) return Counted(arguments);
            break;
        case Form::FirstMessage:
            if (IsPointer(value))
                return std::to_string(reinterpret_cast<const MSG*>(value)->message);
            break;
        case Form::Message:
            if (value >= kFirstRegisteredMessage) return "registered";
            [[fallthrough]];
        case Form::Number:
            return std::to_string(static_cast<std::int32_t>(value));
    }
    return value == 0 ? "null" : std::to_string(value);
}

}  // namespace

std::string Utf8(std::wstring_view text) {
    std::string bytes(text.size() * 3, '\0');
    const int size =
        WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), bytes.data(),
                            static_cast<int>(bytes.size()), nullptr, nullptr);
    bytes.resize(static_cast<std::size_t>(size));
    return bytes;
}

std::string CallSubject(const std::string& function, const std::uint64_t* arguments) {
    std::string subject;
    for (const Argument& each : kArguments) {
        if (each.function != function) continue;
        if (!subject.empty()) subject += " | ";
        subject += Printed(arguments + each.index, each.form);
    }
    for (char& each : subject) {
        if (static_cast<unsigned char>(each) < ' ') each = ' ';
    }
    return subject;
}

}  // namespace import_hook
