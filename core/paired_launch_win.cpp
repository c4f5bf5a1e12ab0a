#include "core/paired_launch.h"

#include "base/handles.h"

namespace tarn {

int StartPairedLauncher(const std::wstring& program, bool waitForIt) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    // CreateProcessW may write to the command line it is given.
    std::wstring commandLine = GetCommandLineW();
    if (!CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr,
                        nullptr, &startup, &started)) {
        return 0;
    }
    const UniqueHandle thread(started.hThread);
    const UniqueHandle process(started.hProcess);
    if (!waitForIt) return 0;
    // -1 when the exit code is unavailable, because success is not known.
    DWORD exitCode = static_cast<DWORD>(-1);
    if (WaitForSingleObject(process.get(), INFINITE) == WAIT_OBJECT_0) {
        GetExitCodeProcess(process.get(), &exitCode);
    }
    return static_cast<int>(exitCode);
}

}  // namespace tarn
