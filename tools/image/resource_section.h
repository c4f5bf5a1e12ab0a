#pragma once

#include <cstdint>

#include "tools/common/byte_io.h"
#include "tools/image/resource_tree.h"

namespace tarn::tools {

/// Reads a resource section that is loaded at `address` (relative to the image base). Throws
/// Failure, without the file's name, for anything but three levels of directories with their data
/// inside the section.
ResourceTree ReadResourceSection(ByteSpan section, std::uint32_t address);

/// Writes the section for loading at `address`. The same tree gives the same bytes.
Bytes WriteResourceSection(const ResourceTree& tree, std::uint32_t address);

}  // namespace tarn::tools
