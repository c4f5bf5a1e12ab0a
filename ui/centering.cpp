#include "ui/centering.h"

#include <algorithm>

namespace tarn {
namespace {

std::int32_t CenteredStart(std::int32_t length, std::int32_t from, std::int32_t to,
                           std::int32_t areaFrom, std::int32_t areaTo) {
    const std::int32_t centered = from + ((to - from) - length) / 2;
    return std::max(std::min(centered, areaTo - length), areaFrom);
}

}  // namespace

PixelRect CenteredOver(PixelSize size, const PixelRect& around, const PixelRect& workArea) {
    const std::int32_t left =
        CenteredStart(size.width, around.left, around.right, workArea.left, workArea.right);
    const std::int32_t top =
        CenteredStart(size.height, around.top, around.bottom, workArea.top, workArea.bottom);
    return {left, top, left + size.width, top + size.height};
}

}  // namespace tarn
