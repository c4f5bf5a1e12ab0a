#pragma once

#include <span>
#include <string>

#include "tools/common/whole_file.h"

namespace tarn::tools {

/// The ending of a picture's name by its first bytes: ".png", ".gif" or ".jpg"; empty for anything
/// else, which the runtime's own splash cannot show.
std::string PictureEnding(std::span<const std::byte> picture);

}  // namespace tarn::tools
