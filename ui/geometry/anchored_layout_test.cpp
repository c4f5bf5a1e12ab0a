#include "ui/geometry/anchored_layout.h"

#include <gtest/gtest.h>

namespace tarn {
namespace {

constexpr Rectangle kFirst{10, 20, 100, 50};

void ExpectRectangle(const Rectangle& actual, int left, int top, int width, int height) {
    EXPECT_EQ(actual.left, left);
    EXPECT_EQ(actual.top, top);
    EXPECT_EQ(actual.width, width);
    EXPECT_EQ(actual.height, height);
}

TEST(AnchoredLayout, ControlWithoutAnchorStays) {
    ExpectRectangle(Anchored(kFirst, {}, {30, 40}), 10, 20, 100, 50);
}

TEST(AnchoredLayout, ControlOfTheCornerMovesWithIt) {
    ExpectRectangle(Anchored(kFirst, {.movesRight = true, .movesDown = true}, {30, 40}), 40, 60,
                    100, 50);
}

TEST(AnchoredLayout, ControlOfTheMiddleGrows) {
    ExpectRectangle(Anchored(kFirst, {.growsRight = true, .growsDown = true}, {30, 40}), 10, 20,
                    130, 90);
}

TEST(AnchoredLayout, LineBelowWhatGrowsMovesDownAndWidens) {
    ExpectRectangle(Anchored(kFirst, {.movesDown = true, .growsRight = true}, {30, 40}), 10, 60,
                    130, 50);
}

TEST(AnchoredLayout, FirstSizeGivesFirstPlaces) {
    const Anchor all{true, true, true, true};
    ExpectRectangle(Anchored(kFirst, all, GrowthBetween(400, 300, 400, 300)), 10, 20, 100, 50);
}

TEST(AnchoredLayout, SmallerWindowCountsAsItsFirstSize) {
    const Growth growth = GrowthBetween(400, 300, 0, 299);
    EXPECT_EQ(growth.right, 0);
    EXPECT_EQ(growth.down, 0);
}

TEST(AnchoredLayout, EachDirectionGrowsForItself) {
    const Growth growth = GrowthBetween(400, 300, 450, 100);
    EXPECT_EQ(growth.right, 50);
    EXPECT_EQ(growth.down, 0);
}

TEST(AnchoredLayout, LengthsFollowTheScreensScale) {
    EXPECT_EQ(ScaledLength(100, 144, 96), 150);
    EXPECT_EQ(ScaledLength(150, 96, 144), 100);
    EXPECT_EQ(ScaledLength(3, 144, 96), 5);
    EXPECT_EQ(ScaledLength(-3, 144, 96), -5);
    EXPECT_EQ(ScaledLength(2'000'000'000, 96, 96), 2'000'000'000);
}

TEST(AnchoredLayout, TheSmallestScaleIsAScale) {
    EXPECT_EQ(ScaledLength(100, 2, 1), 200);
    EXPECT_EQ(ScaledLength(100, 1, 2), 50);
}

TEST(AnchoredLayout, UnknownScaleChangesNothing) {
    EXPECT_EQ(ScaledLength(100, 0, 96), 100);
    EXPECT_EQ(ScaledLength(100, 96, 0), 100);
}

TEST(AnchoredLayout, RectangleIsScaledWhole) {
    ExpectRectangle(Scaled(kFirst, 192, 96), 20, 40, 200, 100);
}

}  // namespace
}  // namespace tarn
