#include "ui/splash_geometry.h"

namespace tarn {
namespace {

struct Span {
    std::int32_t from;
    std::int32_t to;
};

// In 64 bits, for a picture may claim any size and the sum of two such sizes fits no 32.
Span Centre(std::int64_t screen, std::int64_t image) {
    const std::int64_t from = (screen - image) / 2;
    return {static_cast<std::int32_t>(from), static_cast<std::int32_t>(from + image)};
}

}  // namespace

WindowPlace CentreOnScreen(std::int32_t screenWidth, std::int32_t screenHeight,
                           std::int32_t imageWidth, std::int32_t imageHeight) {
    const Span across = Centre(screenWidth, imageWidth);
    const Span down = Centre(screenHeight, imageHeight);
    return {across.from, down.from, across.to, down.to};
}

}  // namespace tarn
