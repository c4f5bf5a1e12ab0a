#pragma once

#include "tests/import_hook/hooked_function.h"

namespace import_hook {

/// What is asked at every call: gives the address to go on at, or null when the call has been
/// failed with the result in `*result`.
using Decision = void* (*)(HookedFunction* function, void* returnAddress, std::uint64_t* result);

/// Makes a small piece of code that stands for the function: it asks `decision`, and goes on to the
/// function with all arguments as they are, whatever their number and types. Null without memory.
void* MakeStub(HookedFunction* function, Decision decision);

}  // namespace import_hook
