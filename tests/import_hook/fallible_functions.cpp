#include "tests/import_hook/fallible_functions.h"

#include <algorithm>
#include <iterator>

namespace import_hook {

namespace {

// Their results never report a failure.
constexpr std::string_view kCannotFail[] = {
    "AcquireSRWLockExclusive",
    "CharNextW",
    "CoTaskMemFree",
    "DeleteCriticalSection",
    "DispatchMessageW",
    "ExitProcess",
    "GdiplusShutdown",
    "GetCommandLineW",
    "GetCurrentProcess",
    "GetCurrentProcessId",
    "GetCurrentThreadId",
    "GetLocalTime",
    "GetStartupInfoW",
    "GetSysColor",
    "GetSystemDefaultLCID",
    "GlobalMemoryStatus",
    "HeapFree",
    "InitializeCriticalSection",
    "OleUninitialize",
    "RaiseException",
    "ReleaseSRWLockExclusive",
    "SetUnhandledExceptionFilter",
    "Sleep",
    "TranslateMessage",
    "VerSetConditionMask",
};

constexpr std::string_view kAllocations[] = {
    "malloc", "calloc", "realloc", "HeapAlloc", "HeapReAlloc",
};

template <std::size_t size>
bool Has(const std::string_view (&names)[size], std::string_view name) {
    return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

bool IsOfCLibrary(std::string_view library) {
    return library == "msvcrt.dll" || library.starts_with("api-ms-win-crt") ||
           library == "ucrtbase.dll";
}

}  // namespace

bool CanFail(std::string_view library, std::string_view function) {
    return !IsOfCLibrary(library) && !IsAllocation(function) && !Has(kCannotFail, function);
}

bool IsAllocation(std::string_view function) {
    return Has(kAllocations, function);
}

}  // namespace import_hook
