#include "ui/splash_geometry.h"

namespace tarn {
namespace {

struct Extent {
    std::int32_t from;
    std::int32_t to;
};

// In 64 bits, for a picture may claim any size, and not every difference of two fits into 32.
Extent Center(std::int64_t screen, std::int64_t image) {
    const std::int64_t from = (screen - image) / 2;
    return {static_cast<std::int32_t>(from), static_cast<std::int32_t>(from + image)};
}

}  // namespace

PixelRect CenteredOnScreen(PixelSize screen, PixelSize image) {
    const Extent across = Center(screen.width, image.width);
    const Extent down = Center(screen.height, image.height);
    return {across.from, down.from, across.to, down.to};
}

}  // namespace tarn
