#include "ui/geometry/anchored_layout.h"

#include <gtest/gtest.h>

namespace tarn {
namespace {

constexpr PixelRect kFirst{10, 20, 110, 70};
constexpr PixelSize kFirstClient{400, 300};

TEST(AnchoredLayout, ControlWithoutAnchorStays) {
    EXPECT_EQ(Anchored(kFirst, {}, {30, 40}), (PixelRect{10, 20, 110, 70}));
}

TEST(AnchoredLayout, ControlInTheCornerMovesWithIt) {
    EXPECT_EQ(Anchored(kFirst, {.movesRight = true, .movesDown = true}, {30, 40}),
              (PixelRect{40, 60, 140, 110}));
}

TEST(AnchoredLayout, ControlInTheMiddleGrows) {
    EXPECT_EQ(Anchored(kFirst, {.growsRight = true, .growsDown = true}, {30, 40}),
              (PixelRect{10, 20, 140, 110}));
}

TEST(AnchoredLayout, LineBelowAGrowingControlMovesDownAndWidens) {
    EXPECT_EQ(Anchored(kFirst, {.movesDown = true, .growsRight = true}, {30, 40}),
              (PixelRect{10, 60, 140, 110}));
}

TEST(AnchoredLayout, FirstSizeGivesFirstPlaces) {
    const Anchor all{true, true, true, true};
    EXPECT_EQ(Anchored(kFirst, all, GrowthBetween(kFirstClient, {400, 300})),
              (PixelRect{10, 20, 110, 70}));
}

TEST(AnchoredLayout, SmallerWindowHasNoGrowth) {
    const Growth growth = GrowthBetween(kFirstClient, {0, 299});
    EXPECT_EQ(growth.right, 0);
    EXPECT_EQ(growth.down, 0);
}

TEST(AnchoredLayout, DirectionsGrowIndependently) {
    const Growth growth = GrowthBetween(kFirstClient, {450, 100});
    EXPECT_EQ(growth.right, 50);
    EXPECT_EQ(growth.down, 0);
}

TEST(AnchoredLayout, LengthsAreScaledAndRounded) {
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

TEST(AnchoredLayout, RectangleIsScaled) {
    EXPECT_EQ(Scaled(kFirst, 192, 96), (PixelRect{20, 40, 220, 140}));
}

}  // namespace
}  // namespace tarn
