#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tools/image/resource_tree.h"

namespace tarn::tools {

/// The text of a number in the string table in UTF-8, empty when there is none. Throws Failure when
/// its block of texts is broken.
std::string StringOf(const ResourceTree& tree, std::uint16_t id);

/// Sets the text of a number (UTF-8, at most 65,535 UTF-16 units) in every language that has a
/// block of texts around it, or in the launcher's own language when none has. Throws Failure when a
/// block is broken or the text too long.
void SetString(ResourceTree& tree, std::uint16_t id, std::string_view text);

}  // namespace tarn::tools
