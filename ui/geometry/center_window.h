#pragma once

#include "base/windows.h"

namespace tarn {

/// Moves a window to the middle of its owner, or of the work area of its monitor when it has no
/// owner that can be seen. It stays inside the work area.
void CenterWindow(HWND window);

}  // namespace tarn
