#pragma once

#include <cstdint>

namespace tarn {

/// Width and height in pixels.
struct PixelSize {
    std::int32_t width = 0;
    std::int32_t height = 0;
};

/// A rectangle in pixels; right and bottom are exclusive.
struct PixelRect {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;

    std::int32_t width() const { return right - left; }
    std::int32_t height() const { return bottom - top; }
    bool operator==(const PixelRect&) const = default;
};

}  // namespace tarn
