#include "ui/geometry/anchored_layout.h"

#include <algorithm>
#include <cstdint>

namespace tarn {

Growth GrowthBetween(PixelSize first, PixelSize present) {
    return {std::max(present.width - first.width, 0), std::max(present.height - first.height, 0)};
}

PixelRect Anchored(const PixelRect& first, Anchor anchor, Growth growth) {
    PixelRect result = first;
    if (anchor.movesRight) result.left += growth.right;
    if (anchor.movesRight || anchor.growsRight) result.right += growth.right;
    if (anchor.movesDown) result.top += growth.down;
    if (anchor.movesDown || anchor.growsDown) result.bottom += growth.down;
    return result;
}

int ScaledLength(int length, int dpi, int firstDpi) {
    if (dpi <= 0 || firstDpi <= 0) return length;
    const std::int64_t product = std::int64_t{length} * dpi;
    const std::int64_t half = product < 0 ? -firstDpi / 2 : firstDpi / 2;
    return static_cast<int>((product + half) / firstDpi);
}

PixelRect Scaled(const PixelRect& rectangle, int dpi, int firstDpi) {
    const int left = ScaledLength(rectangle.left, dpi, firstDpi);
    const int top = ScaledLength(rectangle.top, dpi, firstDpi);
    return {left, top, left + ScaledLength(rectangle.width(), dpi, firstDpi),
            top + ScaledLength(rectangle.height(), dpi, firstDpi)};
}

}  // namespace tarn
