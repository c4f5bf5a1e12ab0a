#include "ui/splash_geometry.h"

#include <gtest/gtest.h>

#include <limits>

namespace tarn {
namespace {

constexpr PixelSize kScreen{1920, 1080};

TEST(CenteredOnScreenTest, PutsAPictureInTheMiddle) {
    EXPECT_EQ(CenteredOnScreen(kScreen, {640, 400}), (PixelRect{640, 340, 1280, 740}));
}

TEST(CenteredOnScreenTest, KeepsThePicturesSizeWhenTheRestIsOdd) {
    EXPECT_EQ(CenteredOnScreen(kScreen, {101, 77}), (PixelRect{909, 501, 1010, 578}));
    EXPECT_EQ(CenteredOnScreen(kScreen, {1, 1}), (PixelRect{959, 539, 960, 540}));
}

TEST(CenteredOnScreenTest, FillsTheScreenExactly) {
    EXPECT_EQ(CenteredOnScreen(kScreen, kScreen), (PixelRect{0, 0, 1920, 1080}));
}

TEST(CenteredOnScreenTest, LetsALargePictureOverhangOnBothSides) {
    EXPECT_EQ(CenteredOnScreen(kScreen, {3000, 2000}), (PixelRect{-540, -460, 2460, 1540}));
}

TEST(CenteredOnScreenTest, CutsAnOddOverhangTowardsZero) {
    EXPECT_EQ(CenteredOnScreen(kScreen, {1921, 1083}), (PixelRect{0, -1, 1921, 1082}));
}

TEST(CenteredOnScreenTest, PutsAnEmptyPictureAtTheCenter) {
    EXPECT_EQ(CenteredOnScreen(kScreen, {}), (PixelRect{960, 540, 960, 540}));
}

TEST(CenteredOnScreenTest, DoesNotOverflowWithTheLargestSizes) {
    constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
    constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();
    EXPECT_EQ(CenteredOnScreen({}, {most, most}),
              (PixelRect{-1073741823, -1073741823, 1073741824, 1073741824}));
    EXPECT_EQ(CenteredOnScreen(kScreen, {least, 0}).left, 1073742784);
}

}  // namespace
}  // namespace tarn
