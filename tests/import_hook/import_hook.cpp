// Loaded before a program's first instruction, this library redirects everything that the program
// imports, or looks up in the system's libraries while it runs.

#include <cstring>
#include <deque>
#include <mutex>
#include <string_view>

#include "base/windows.h"
#include "tests/import_hook/call_counts.h"
#include "tests/import_hook/call_times.h"
#include "tests/import_hook/fallible_functions.h"
#include "tests/import_hook/hook_log.h"
#include "tests/import_hook/import_slots.h"
#include "tests/import_hook/local_clock.h"
#include "tests/import_hook/stub_pages.h"
#include "tests/import_hook/thread_roles.h"

namespace import_hook {

namespace {

// Nothing is removed, because stubs refer to the elements.
std::mutex mutex;
std::deque<HookedFunction> functions;

void* StubFor(std::string_view library, const std::string& name, void* target) {
    HookedFunction* function = nullptr;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        for (HookedFunction& each : functions) {
            if (each.library == library && each.name == name) function = &each;
        }
        // A function has one count, however often it is looked up.
        if (function == nullptr) {
            function = &functions.emplace_back();
            function->library = library;
            function->name = name;
            function->isLogged = IsLogged(name.c_str());
            function->canFail = function->isLogged && CanFail(library, name);
        }
        function->target = target;
    }
    void* const stub = CreateStub(function, DecideCall);
    return stub != nullptr ? stub : target;
}

/// The file name of a library in the system folder; empty for any other, such as a Java runtime's.
std::string SystemLibraryName(HMODULE library) {
    char system[MAX_PATH] = "";
    const std::size_t length = GetSystemDirectoryA(system, MAX_PATH);
    char path[MAX_PATH] = "";
    GetModuleFileNameA(library, path, MAX_PATH);
    if (_strnicmp(path, system, length) != 0) return {};
    return std::strrchr(path, '\\') + 1;
}

FARPROC WINAPI FindAndHook(HMODULE library, const char* name) {
    const FARPROC found = GetProcAddress(library, name);
    const DWORD error = GetLastError();
    FARPROC result = found;
    const bool isName = reinterpret_cast<std::uintptr_t>(name) > 0xFFFF;
    if (found != nullptr && isName && IsCode(reinterpret_cast<void*>(found))) {
        const std::string libraryName = SystemLibraryName(library);
        if (!libraryName.empty()) {
            result = reinterpret_cast<FARPROC>(
                StubFor(libraryName, name, reinterpret_cast<void*>(found)));
        }
    }
    SetLastError(error);
    return result;
}

void HookImports() {
    for (const ImportSlot& slot : ImportSlots()) {
        if (!IsCode(*slot.place)) continue;
        const std::string name =
            slot.name != nullptr ? slot.name : '#' + std::to_string(slot.number);
        void* target = *slot.place;
        if (name == "GetProcAddress") target = reinterpret_cast<void*>(FindAndHook);
        if (name == "CreateThread") target = reinterpret_cast<void*>(CreateThreadWithRole);
        if (name == "GetLocalTime") target = reinterpret_cast<void*>(GetPlannedLocalTime);
        Redirect(slot.place, StubFor(slot.library, name, target));
    }
}

}  // namespace

}  // namespace import_hook

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, void*) {
    if (reason == DLL_PROCESS_DETACH) import_hook::WriteCallTimes();
    if (reason != DLL_PROCESS_ATTACH) return TRUE;
    import_hook::PrepareThreadRoles();
    import_hook::OpenHookLog();
    import_hook::OpenCallTimes();
    import_hook::ReadFailurePlan();
    import_hook::ReadLocalClock();
    import_hook::HookImports();
    return TRUE;
}
