#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace import_hook {

/// The arguments that identify a call of the function: section, key and file, path, name or number,
/// separated by " | ". UTF-8 without control characters. Empty for functions that only take handles
/// and buffers.
std::string CallSubject(const std::string& function, const std::uint64_t* arguments);

std::string Utf8(std::wstring_view text);

}  // namespace import_hook
