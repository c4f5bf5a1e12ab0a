#pragma once

#include "tests/import_hook/hooked_function.h"

namespace import_hook {

/// Called before each call of a hooked function. `arguments` are the call's arguments, 64 bits
/// each; the return address precedes them. Returns the address of the function to run, or null when
/// the call fails with `*result`.
using Decision = void* (*)(HookedFunction* function, const std::uint64_t* arguments,
                           std::uint64_t* result);

/// Generates code that replaces the function: it calls `decision`, then runs the function with its
/// arguments unchanged, whatever their number and types. Returns null without memory.
void* CreateStub(HookedFunction* function, Decision decision);

}  // namespace import_hook
