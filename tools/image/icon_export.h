#pragma once

#include "tools/common/byte_io.h"
#include "tools/image/resource_tree.h"

namespace tarn::tools {

/// The first icon group of an executable, which is the icon that the shell shows, as an .ico file.
/// Empty when there is none. Throws Failure, without the file's name, when it is corrupt.
Bytes IconFileOf(const ResourceTree& tree);

}  // namespace tarn::tools
