#include "ui/splash_geometry.h"

#include <gtest/gtest.h>

#include <limits>

namespace tarn {
namespace {

constexpr std::int32_t kWidest = std::numeric_limits<std::int32_t>::max();

void ExpectPlace(const WindowPlace& place, std::int32_t left, std::int32_t top, std::int32_t right,
                 std::int32_t bottom) {
    EXPECT_EQ(place.left, left);
    EXPECT_EQ(place.top, top);
    EXPECT_EQ(place.right, right);
    EXPECT_EQ(place.bottom, bottom);
}

TEST(CentreOnScreenTest, PutsAPictureInTheMiddle) {
    ExpectPlace(CentreOnScreen(1920, 1080, 640, 400), 640, 340, 1280, 740);
}

TEST(CentreOnScreenTest, KeepsThePicturesSizeWhenTheRestIsOdd) {
    ExpectPlace(CentreOnScreen(1920, 1080, 101, 77), 909, 501, 1010, 578);
    ExpectPlace(CentreOnScreen(1920, 1080, 1, 1), 959, 539, 960, 540);
}

TEST(CentreOnScreenTest, FillsTheScreenExactly) {
    ExpectPlace(CentreOnScreen(1920, 1080, 1920, 1080), 0, 0, 1920, 1080);
}

TEST(CentreOnScreenTest, LetsALargePictureOverhangOnBothSides) {
    ExpectPlace(CentreOnScreen(1920, 1080, 3000, 2000), -540, -460, 2460, 1540);
}

TEST(CentreOnScreenTest, CutsAnOddOverhangTowardsZero) {
    ExpectPlace(CentreOnScreen(1920, 1080, 1921, 1083), 0, -1, 1921, 1082);
}

TEST(CentreOnScreenTest, PutsAnEmptyPictureAtTheCentre) {
    ExpectPlace(CentreOnScreen(1920, 1080, 0, 0), 960, 540, 960, 540);
}

TEST(CentreOnScreenTest, DoesNotOverflowWithTheLargestSizes) {
    ExpectPlace(CentreOnScreen(0, 0, kWidest, kWidest), -1073741823, -1073741823, 1073741824,
                1073741824);
}

}  // namespace
}  // namespace tarn
