#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/installed_application.h"

namespace tarn::test {

/// One call of the launcher, as tests/import_hook logs it.
struct HookedCall {
    unsigned role = 0;        ///< 1: the entry thread; the others in the order of their creation
    std::string library;      ///< "KERNEL32.dll"
    std::string function;     ///< "CreateFileW"
    unsigned number = 0;      ///< the occurrence of the function in this thread, from 1
    std::uint64_t place = 0;  ///< the return address, relative to the program
    bool failed = false;      ///< by the hook
    std::string subject;      ///< the arguments that identify the call, UTF-8; may be empty
};

/// Returns the calls in order. A line that is still being written is omitted.
std::vector<HookedCall> ReadHookLog(const std::wstring& file);

/// The file to which `StartHooked` logs the calls.
std::wstring HookLogFile(const InstalledApplication& app);

/// Starts the application with the hook; `failures` is the value of HOOK_FAIL (tests/README.md).
std::unique_ptr<LaunchedProcess> StartHooked(const InstalledApplication& app,
                                             std::wstring_view failures = {},
                                             std::wstring_view argumentText = {});

}  // namespace tarn::test
