// Plays a paired 32-bit launcher: records how it was started, and ends with a given code.

#include <cstdlib>
#include <string>

#include "base/windows.h"

namespace {

std::wstring Variable(const wchar_t* name) {
    std::wstring value(32768, L'\0');
    value.resize(GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
    return value;
}

std::wstring Directory() {
    std::wstring path(32768, L'\0');
    path.resize(GetCurrentDirectoryW(static_cast<DWORD>(path.size()), path.data()));
    return path;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    STARTUPINFOW startup{};
    GetStartupInfoW(&startup);
    const std::wstring notes = std::wstring(GetCommandLineW()) + L'\n' + Directory() + L'\n' +
                               Variable(L"PAIR_PROBE") + L'\n' + std::to_wstring(startup.dwFlags) +
                               L'\n' + std::to_wstring(GetErrorMode()) + L'\n';
    const std::wstring eventName = Variable(L"PAIR_WAIT");
    // Opened before the report exists: the test may set and close the event as soon as it does.
    const HANDLE event =
        eventName.empty() ? nullptr : CreateEventW(nullptr, TRUE, FALSE, eventName.c_str());
    const HANDLE file = CreateFileW(Variable(L"PAIR_LOG").c_str(), GENERIC_WRITE, FILE_SHARE_READ,
                                    nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    DWORD written = 0;
    WriteFile(file, notes.data(), static_cast<DWORD>(notes.size() * sizeof(wchar_t)), &written,
              nullptr);
    CloseHandle(file);
    if (event != nullptr) WaitForSingleObject(event, INFINITE);
    return _wtoi(Variable(L"PAIR_EXIT").c_str());
}
