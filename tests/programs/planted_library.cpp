// Plays a library that is planted beside the launcher under the name of a system library: records
// that it was loaded, and from which path.

#include <string>

#include "base/windows.h"

extern "C" BOOL WINAPI DllMain(HINSTANCE self, DWORD reason, void*) {
    if (reason != DLL_PROCESS_ATTACH) return TRUE;
    // The paths of the tests' folders are shorter.
    wchar_t path[1024] = L"";
    wchar_t log[1024] = L"";
    GetModuleFileNameW(self, path, 1024);
    GetEnvironmentVariableW(L"PLANTED_LOG", log, 1024);
    const HANDLE file = CreateFileW(log, FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    const std::wstring line = std::wstring(path) + L'\n';
    DWORD written = 0;
    WriteFile(file, line.data(), static_cast<DWORD>(line.size() * sizeof(wchar_t)), &written,
              nullptr);
    CloseHandle(file);
    return TRUE;
}
