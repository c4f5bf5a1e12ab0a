#pragma once

#include <cstdint>

namespace tarn {

/// A window's place on the screen, in pixels.
struct WindowPlace {
    std::int32_t left;
    std::int32_t top;
    std::int32_t right;
    std::int32_t bottom;
};

/// The place of a picture in the middle of the screen. An odd rest is cut off towards zero, and a
/// picture larger than the screen overhangs it on both sides: nothing is clamped.
WindowPlace CentreOnScreen(std::int32_t screenWidth, std::int32_t screenHeight,
                           std::int32_t imageWidth, std::int32_t imageHeight);

}  // namespace tarn
