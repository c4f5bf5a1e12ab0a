#pragma once

#include <optional>
#include <string>

#include "base/windows.h"

namespace tarn {

/// Lets the user pick a folder (`SHBrowseForFolderW`), in a window owned by `owner` with `title`
/// above the tree. Returns its path as the shell gives it: without a backslash at the end, except
/// for a drive's root. Nothing when the user cancels, and for a folder that has no path in the file
/// system.
std::optional<std::wstring> BrowseForFolder(HWND owner, const std::wstring& title);

}  // namespace tarn
