// Stands for a library that is planted beside the launcher under a system library's name: it
// notes that it was loaded, and from where.

#include <string>

#include "base/windows.h"

extern "C" BOOL WINAPI DllMain(HINSTANCE self, DWORD reason, void*) {
    if (reason != DLL_PROCESS_ATTACH) return TRUE;
    // Paths below the tests' own folders are shorter than this.
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
