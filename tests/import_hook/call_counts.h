#pragma once

#include "tests/import_hook/stub_pages.h"

namespace import_hook {

/// Reads HOOK_FAIL.
void ReadFailurePlan();

/// Whether calls of the function are logged; functions that only move memory or text are not.
bool IsLogged(const char* name);

/// A `Decision`: counts and logs the call, and fails it if the plan says so. The last error changes
/// only if the call fails.
void* DecideCall(HookedFunction* function, const std::uint64_t* arguments, std::uint64_t* result);

}  // namespace import_hook
