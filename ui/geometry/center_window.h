#pragma once

#include "base/windows.h"

namespace tarn {

/// Centres a window over its owner, or in the work area of its monitor when it has no visible
/// owner. It stays inside the work area.
void CenterWindow(HWND window);

}  // namespace tarn
