#pragma once

#include "tests/import_hook/stub_pages.h"

namespace import_hook {

/// Reads HOOK_FAIL.
void ReadFailurePlan();

/// Whether calls of the function mean anything: what only moves memory about does not.
bool IsWorthLogging(const char* name);

/// Counts the call, logs it, and fails it if it is to fail. The last error stays as it is unless
/// the call fails.
void* DecideCall(HookedFunction* function, void* returnAddress, std::uint64_t* result);

}  // namespace import_hook
