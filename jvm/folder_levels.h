#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace tarn {

/// The folders on the way to an absolute file name, outermost first, each as the number of the
/// name's characters that name it. What cannot be created is left out: the drive, a share and its
/// server, and whatever "\\?\" or "\\.\" stands before. Both "\" and "/" separate.
std::vector<std::size_t> FolderLevels(std::wstring_view absoluteName);

}  // namespace tarn
