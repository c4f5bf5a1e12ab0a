#pragma once

#include <cstdint>

#include "tools/common/byte_io.h"
#include "tools/image/resource_tree.h"

namespace tarn::tools {

/// Reads the resources out of the bytes of their section, which is loaded at `address` (counted
/// from the image's base). Throws Failure, without a file's name, for anything that is not three
/// levels of directories with their data inside the section.
ResourceTree ReadResourceSection(ByteSpan section, std::uint32_t address);

/// The same bytes from the same tree, for a section at `address`.
Bytes WriteResourceSection(const ResourceTree& tree, std::uint32_t address);

}  // namespace tarn::tools
