#include "tests/support/inject_dll.h"

#include "base/handles.h"
#include "tests/support/wait.h"

namespace tarn::test {

bool InjectLibrary(HANDLE process, const std::wstring& library) {
    const std::size_t bytes = (library.size() + 1) * sizeof(wchar_t);
    void* const path =
        VirtualAllocEx(process, nullptr, bytes, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
    if (path == nullptr) return false;
    if (!WriteProcessMemory(process, path, library.c_str(), bytes, nullptr)) return false;
    // System libraries have the same address in all processes.
    const auto load = reinterpret_cast<LPTHREAD_START_ROUTINE>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "LoadLibraryW")));
    const UniqueHandle thread(CreateRemoteThread(process, nullptr, 0, load, path, 0, nullptr));
    if (!thread) return false;
    const auto limit = static_cast<DWORD>(kTimeLimit.count());
    DWORD loaded = 0;
    return WaitForSingleObject(thread.get(), limit) == WAIT_OBJECT_0 &&
           GetExitCodeThread(thread.get(), &loaded) && loaded != 0;
}

}  // namespace tarn::test
