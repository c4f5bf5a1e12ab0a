#pragma once

#include <filesystem>
#include <vector>

#include "tools/image/icon.h"

namespace tarn::tools {

/// Reads an .ico or .png file. Throws Failure for anything else; for an SVG drawing the message
/// says how to convert it.
std::vector<IconPicture> ReadIconFile(const std::filesystem::path& file);

}  // namespace tarn::tools
