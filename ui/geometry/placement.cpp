#include "ui/geometry/placement.h"

#include <algorithm>

namespace tarn {
namespace {

std::int32_t CenteredStart(std::int32_t length, std::int32_t from, std::int32_t to,
                           std::int32_t areaFrom, std::int32_t areaTo) {
    const std::int32_t centered = from + ((to - from) - length) / 2;
    return std::max(std::min(centered, areaTo - length), areaFrom);
}

struct Extent {
    std::int32_t from;
    std::int32_t to;
};

// In 64 bits: a picture may claim any size, and not every difference of two fits into 32 bits.
Extent Center(std::int64_t screen, std::int64_t image) {
    const std::int64_t from = (screen - image) / 2;
    return {static_cast<std::int32_t>(from), static_cast<std::int32_t>(from + image)};
}

}  // namespace

PixelRect CenteredOver(PixelSize size, const PixelRect& around, const PixelRect& workArea) {
    const std::int32_t left =
        CenteredStart(size.width, around.left, around.right, workArea.left, workArea.right);
    const std::int32_t top =
        CenteredStart(size.height, around.top, around.bottom, workArea.top, workArea.bottom);
    return {left, top, left + size.width, top + size.height};
}

PixelRect CenteredOnScreen(PixelSize screen, PixelSize image) {
    const Extent across = Center(screen.width, image.width);
    const Extent down = Center(screen.height, image.height);
    return {across.from, down.from, across.to, down.to};
}

PixelRect MakeRoom(const PixelRect& place, std::int32_t neededHeight, std::int32_t highest,
                   std::int32_t lowest) {
    if (neededHeight <= place.height()) return place;
    PixelRect grown = place;
    grown.bottom = std::max(place.bottom, std::min(place.top + neededHeight, lowest));
    grown.top = std::min(place.top, std::max(grown.bottom - neededHeight, highest));
    return grown;
}

}  // namespace tarn
