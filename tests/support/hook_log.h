#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/installed_application.h"

namespace tarn::test {

/// One call that the launcher made, as the hook of tests/import_hook logged it.
struct HookedCall {
    unsigned role = 0;  ///< 1: the entry thread; the launcher's others in the order of their start
    std::string library;      ///< "KERNEL32.dll"
    std::string function;     ///< "CreateFileW"
    unsigned number = 0;      ///< which call of the function by this thread, from 1
    std::uint64_t place = 0;  ///< where it returns to, relative to the program
    bool failed = false;      ///< by the hook
    std::string subject;      ///< the arguments that identify the call, UTF-8; may be empty
};

/// The calls in their order. A line that is still being written is left out.
std::vector<HookedCall> ReadHookLog(const std::wstring& file);

/// Where `StartHooked` has the calls logged.
std::wstring HookLogFile(const InstalledApplication& app);

/// Starts the application with the hook in it; `failures` are what HOOK_FAIL says
/// (tests/README.md).
std::unique_ptr<LaunchedProcess> StartHooked(const InstalledApplication& app,
                                             std::wstring_view failures = {},
                                             std::wstring_view argumentText = {});

}  // namespace tarn::test
