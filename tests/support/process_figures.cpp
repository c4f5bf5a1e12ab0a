#include "tests/support/process_figures.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <vector>

#include "base/handles.h"

// Last: they need the types of windows.h.
#include <psapi.h>
#include <tlhelp32.h>
#include <winternl.h>

namespace tarn::test {

namespace {

// GetProcessHandleCount is always 0 under Wine; the process list contains the number.
std::size_t HandlesOf(DWORD id) {
    std::vector<std::byte> list(1 << 20);
    EXPECT_EQ(NtQuerySystemInformation(SystemProcessInformation, list.data(),
                                       static_cast<ULONG>(list.size()), nullptr),
              0);
    for (const std::byte* at = list.data();;) {
        const auto* const entry = reinterpret_cast<const SYSTEM_PROCESS_INFORMATION*>(at);
        if (entry->UniqueProcessId == ULongToHandle(id)) return entry->HandleCount;
        if (entry->NextEntryOffset == 0) return 0;
        at += entry->NextEntryOffset;
    }
}

std::size_t ThreadsOf(DWORD id) {
    const UniqueFile snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0));
    THREADENTRY32 entry{};
    entry.dwSize = sizeof entry;
    std::size_t count = 0;
    for (BOOL more = Thread32First(snapshot.get(), &entry); more;
         more = Thread32Next(snapshot.get(), &entry)) {
        if (entry.th32OwnerProcessID == id) ++count;
    }
    return count;
}

std::size_t CountProcesses() {
    const UniqueFile snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    std::size_t count = 0;
    for (BOOL more = Process32FirstW(snapshot.get(), &entry); more;
         more = Process32NextW(snapshot.get(), &entry)) {
        ++count;
    }
    return count;
}

BOOL CALLBACK CountWindow(HWND, LPARAM count) {
    ++*reinterpret_cast<std::size_t*>(count);
    return TRUE;
}

void AddFiles(const std::wstring& folder, const std::wstring& relative,
              std::set<std::wstring>& names) {
    WIN32_FIND_DATAW found{};
    const UniqueFindHandle search(FindFirstFileW((folder + relative + L'*').c_str(), &found));
    for (BOOL more = search ? TRUE : FALSE; more; more = FindNextFileW(search.get(), &found)) {
        const std::wstring name = found.cFileName;
        if (name == L"." || name == L"..") continue;
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
            AddFiles(folder, relative + name + L'\\', names);
        } else {
            names.insert(relative + name);
        }
    }
}

}  // namespace

ProcessFigures FiguresOf(HANDLE process) {
    const DWORD id = GetProcessId(process);
    PROCESS_MEMORY_COUNTERS memory{};
    EXPECT_TRUE(GetProcessMemoryInfo(process, &memory, sizeof memory));
    // The same as PrivateUsage on Windows; Wine fills in only this one.
    return {HandlesOf(id), ThreadsOf(id), memory.PagefileUsage / 1024};
}

SystemFigures SystemFiguresNow() {
    SystemFigures figures;
    figures.processes = CountProcesses();
    EnumWindows(CountWindow, reinterpret_cast<LPARAM>(&figures.windows));
    return figures;
}

std::set<std::wstring> FilesBelow(const std::wstring& folder) {
    std::set<std::wstring> names;
    AddFiles(folder, L"", names);
    return names;
}

int SoakCount(const char* variable, int usual) {
    const char* const text = std::getenv(variable);
    const int count = text != nullptr ? std::atoi(text) : 0;
    return count > 0 ? count : usual;
}

}  // namespace tarn::test
