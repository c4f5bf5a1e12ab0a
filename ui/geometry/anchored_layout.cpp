#include "ui/geometry/anchored_layout.h"

#include <algorithm>
#include <cstdint>

namespace tarn {

Growth GrowthBetween(int firstWidth, int firstHeight, int width, int height) {
    return {std::max(width - firstWidth, 0), std::max(height - firstHeight, 0)};
}

Rectangle Anchored(const Rectangle& first, Anchor anchor, Growth growth) {
    Rectangle result = first;
    if (anchor.movesRight) result.left += growth.right;
    if (anchor.movesDown) result.top += growth.down;
    if (anchor.growsRight) result.width += growth.right;
    if (anchor.growsDown) result.height += growth.down;
    return result;
}

int ScaledLength(int length, int dpi, int firstDpi) {
    if (dpi <= 0 || firstDpi <= 0) return length;
    const std::int64_t product = std::int64_t{length} * dpi;
    const std::int64_t half = product < 0 ? -firstDpi / 2 : firstDpi / 2;
    return static_cast<int>((product + half) / firstDpi);
}

Rectangle Scaled(const Rectangle& rectangle, int dpi, int firstDpi) {
    return {ScaledLength(rectangle.left, dpi, firstDpi), ScaledLength(rectangle.top, dpi, firstDpi),
            ScaledLength(rectangle.width, dpi, firstDpi),
            ScaledLength(rectangle.height, dpi, firstDpi)};
}

}  // namespace tarn
