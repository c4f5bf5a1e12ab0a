#pragma once

#include "ui/pixel_rect.h"

namespace tarn {

/// The place of a picture in the middle of the screen. An odd rest is cut off towards zero, and a
/// picture larger than the screen overhangs it on both sides: nothing is clamped.
PixelRect CenteredOnScreen(PixelSize screen, PixelSize image);

}  // namespace tarn
