#include "tests/support/process_figures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <vector>

#include "base/handles.h"

// Last: they need the types of windows.h.
#include <psapi.h>
#include <tlhelp32.h>
#include <winternl.h>

namespace tarn::test {

namespace {

// The list of all handles of the system, which no header declares.
constexpr auto kExtendedHandleInformation = std::bit_cast<SYSTEM_INFORMATION_CLASS>(64U);
constexpr NTSTATUS kLengthMismatch = static_cast<NTSTATUS>(0xC0000004);

struct HandleEntry {
    void* object;
    ULONG_PTR processId;
    ULONG_PTR handle;
    ULONG access;
    USHORT creator;
    USHORT type;
    ULONG attributes;
    ULONG reserved;
};

struct HandleList {
    ULONG_PTR count;
    ULONG_PTR reserved;
    HandleEntry entries[1];
};

// GetProcessHandleCount is always 0 under Wine, and the number in Wine's list of processes is the
// size of the handle table, free entries included.
std::size_t HandlesOf(DWORD id) {
    std::vector<std::byte> buffer(1 << 18);
    NTSTATUS status = kLengthMismatch;
    while (status == kLengthMismatch) {
        buffer.resize(buffer.size() * 2);
        status = NtQuerySystemInformation(kExtendedHandleInformation, buffer.data(),
                                          static_cast<ULONG>(buffer.size()), nullptr);
    }
    EXPECT_EQ(status, 0);
    const auto* const list = reinterpret_cast<const HandleList*>(buffer.data());
    return static_cast<std::size_t>(
        std::count_if(list->entries, list->entries + list->count,
                      [&](const HandleEntry& each) { return each.processId == id; }));
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

std::size_t CountAtoms() {
    constexpr ATOM kFirst = 0xC000;
    constexpr ATOM kLast = 0xFFFF;
    constexpr int kMostName = 256;
    std::size_t count = 0;
    for (unsigned atom = kFirst; atom <= kLast; ++atom) {
        wchar_t name[kMostName];
        if (GlobalGetAtomNameW(static_cast<ATOM>(atom), name, kMostName) != 0) ++count;
        if (GetClipboardFormatNameW(atom, name, kMostName) != 0) ++count;
    }
    return count;
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
