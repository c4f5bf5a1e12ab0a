#pragma once

#include "ui/pixel_rect.h"

namespace tarn {

/// Where a window of `size` goes to be centred over `around` without leaving `workArea`; when it is
/// larger than that, its left and top edges stay inside.
PixelRect CenteredOver(PixelSize size, const PixelRect& around, const PixelRect& workArea);

}  // namespace tarn
