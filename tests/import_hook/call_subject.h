#pragma once

#include <cstdint>
#include <string>

namespace import_hook {

/// The arguments that identify a call of the function: section, key and file, path, name or number,
/// separated by " | ". UTF-8 without control characters. Empty for functions that only take handles
/// and buffers.
std::string CallSubject(const std::string& function, const std::uint64_t* arguments);

}  // namespace import_hook
