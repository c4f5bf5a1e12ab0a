#pragma once

#include <cstddef>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarn::tools {

using Bytes = std::vector<std::byte>;

/// The whole content of a file. Throws Failure when it cannot be read or is larger than `limit`
/// bytes.
Bytes ReadWholeFile(const std::filesystem::path& file, std::uintmax_t limit = UINT32_MAX);

/// Makes `file` hold exactly these bytes, or leaves it as it was: they are written beside it under
/// another name, which then takes its place. Throws Failure; nothing half-written stays.
void WriteWholeFile(const std::filesystem::path& file, std::span<const std::byte> content);
void WriteWholeFile(const std::filesystem::path& file, std::string_view content);

}  // namespace tarn::tools
