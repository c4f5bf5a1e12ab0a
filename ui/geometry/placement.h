#pragma once

#include "ui/geometry/pixel_rect.h"

namespace tarn {

/// Centres a window of `size` over `around` without leaving `workArea`. The left and top edges of a
/// window that is larger than the work area stay inside it.
PixelRect CenteredOver(PixelSize size, const PixelRect& around, const PixelRect& workArea);

/// Centres a picture on the screen. An odd difference is truncated towards zero, and a picture
/// larger than the screen overhangs it on both sides: nothing is clamped.
PixelRect CenteredOnScreen(PixelSize screen, PixelSize image);

/// Enlarges `place` for a text that is `neededHeight` high: first downwards, to `lowest` at most,
/// then upwards, to `highest` at most. A place that is high enough stays as it is.
PixelRect MakeRoom(const PixelRect& place, std::int32_t neededHeight, std::int32_t highest,
                   std::int32_t lowest);

}  // namespace tarn
