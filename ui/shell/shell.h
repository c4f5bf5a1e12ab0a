#pragma once

#include <optional>
#include <string>

#include "base/windows.h"

namespace tarn {

/// Opens an address or a file as a double-click does (`ShellExecuteW`, verb "open"), on behalf of
/// `owner`. Returns whether that succeeded. The call may dispatch messages of this thread.
bool OpenWithShell(HWND owner, const std::wstring& target);

/// Lets the user select a folder (`SHBrowseForFolderW`), in a dialog owned by `owner` with `title`
/// above the tree. Returns its path as the shell gives it: without a trailing backslash, except for
/// the root of a drive. Returns nothing when the user cancels, and for a folder that has no path in
/// the file system. Dispatches messages of this thread.
std::optional<std::wstring> BrowseForFolder(HWND owner, const std::wstring& title);

}  // namespace tarn
