#pragma once

#include <string>

#include "base/windows.h"

namespace tarn {

/// Opens an address or a file as a double click does (`ShellExecuteW`, verb "open"), on behalf of
/// `owner`. Returns whether that worked. The call may dispatch messages of this thread.
bool OpenWithShell(HWND owner, const std::wstring& target);

}  // namespace tarn
