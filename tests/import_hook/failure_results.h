#pragma once

#include <cstdint>
#include <string_view>

namespace import_hook {

/// The return value of the function for a failure with that last error: null or FALSE, -1,
/// `INVALID_HANDLE_VALUE`, or the error itself.
std::uint64_t FailureResult(std::string_view name, std::uint32_t error);

}  // namespace import_hook
