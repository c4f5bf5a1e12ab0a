#pragma once

#include <cstddef>
#include <string_view>

namespace tarn {

/// Walks the folders on the way to an absolute file name, outermost first, each told by how many
/// of the name's characters name it: the first one for `previous` 0, then the one below that of
/// `previous` characters; `npos` when there is none. What cannot be created is left out: the
/// drive, a share and its server, and what "\\?\" or "\\.\" stands before. Both "\" and "/"
/// separate.
std::size_t NextFolderLevel(std::wstring_view absoluteName, std::size_t previous);

}  // namespace tarn
