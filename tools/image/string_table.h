#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tools/image/resource_tree.h"

namespace tarn::tools {

/// The string with that id in UTF-8; empty when there is none. Throws Failure when its block is
/// corrupt.
std::string StringOf(const ResourceTree& tree, std::uint16_t id);

/// Sets the string with that id (UTF-8, at most 65,535 UTF-16 units) in every language that has its
/// block, or in the launcher's own language when none has. Throws Failure when a block is corrupt
/// or the text too long.
void SetString(ResourceTree& tree, std::uint16_t id, std::string_view text);

}  // namespace tarn::tools
