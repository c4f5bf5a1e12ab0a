#include "tests/import_hook/hook_log.h"

#include <mutex>

#include "base/windows.h"

namespace import_hook {

namespace {

HANDLE file = INVALID_HANDLE_VALUE;
// Wine finds the end of a file and writes there in two steps, so two threads would overwrite each
// other's lines.
std::mutex fileMutex;

}  // namespace

void OpenHookLog() {
    wchar_t path[32768] = L"";
    if (GetEnvironmentVariableW(L"HOOK_LOG", path, 32768) == 0) return;
    file = CreateFileW(path, FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                       OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
}

void LogLine(const std::string& line) {
    if (file == INVALID_HANDLE_VALUE) return;
    const std::lock_guard<std::mutex> lock(fileMutex);
    DWORD written = 0;
    WriteFile(file, line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
}

}  // namespace import_hook
