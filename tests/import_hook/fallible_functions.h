#pragma once

#include <string_view>

namespace import_hook {

/// Whether the function can fail at all, so that its failure is worth a test. False for the C
/// library, for functions whose result never reports a failure, and for allocations, which have a
/// test of their own.
bool CanFail(std::string_view library, std::string_view function);

/// Whether the function allocates memory.
bool IsAllocation(std::string_view function);

}  // namespace import_hook
