#include "ui/geometry/placement.h"

#include <gtest/gtest.h>

namespace tarn {
namespace {

constexpr PixelRect kScreen{0, 0, 1000, 800};

TEST(CenteringTest, HasTheSameSpaceOnBothSides) {
    EXPECT_EQ(CenteredOver({200, 100}, kScreen, kScreen), (PixelRect{400, 350, 600, 450}));
    EXPECT_EQ(CenteredOver({200, 100}, {500, 300, 800, 600}, kScreen),
              (PixelRect{550, 400, 750, 500}));
}

TEST(CenteringTest, AWorkAreaNeedNotBeginAtZero) {
    const PixelRect second{-1280, 40, 0, 1040};
    EXPECT_EQ(CenteredOver({280, 200}, second, second), (PixelRect{-780, 440, -500, 640}));
}

TEST(CenteringTest, StaysInsideTheWorkArea) {
    EXPECT_EQ(CenteredOver({200, 100}, {-50, -50, 10, 10}, kScreen), (PixelRect{0, 0, 200, 100}));
    EXPECT_EQ(CenteredOver({200, 100}, {990, 790, 1100, 900}, kScreen),
              (PixelRect{800, 700, 1000, 800}));
    // Over a window smaller than itself.
    EXPECT_EQ(CenteredOver({200, 100}, {500, 400, 510, 410}, kScreen),
              (PixelRect{405, 355, 605, 455}));
}

TEST(CenteringTest, AWindowLargerThanTheWorkAreaBeginsAtItsCorner) {
    EXPECT_EQ(CenteredOver({1200, 900}, kScreen, kScreen), (PixelRect{0, 0, 1200, 900}));
}

constexpr PixelSize kScreenSize{1920, 1080};

TEST(CenteredOnScreenTest, PutsAPictureInTheMiddle) {
    EXPECT_EQ(CenteredOnScreen(kScreenSize, {640, 400}), (PixelRect{640, 340, 1280, 740}));
}

TEST(CenteredOnScreenTest, KeepsThePicturesSizeWhenTheDifferenceIsOdd) {
    EXPECT_EQ(CenteredOnScreen(kScreenSize, {101, 77}), (PixelRect{909, 501, 1010, 578}));
    EXPECT_EQ(CenteredOnScreen(kScreenSize, {1, 1}), (PixelRect{959, 539, 960, 540}));
}

TEST(CenteredOnScreenTest, FillsTheScreenExactly) {
    EXPECT_EQ(CenteredOnScreen(kScreenSize, kScreenSize), (PixelRect{0, 0, 1920, 1080}));
}

TEST(CenteredOnScreenTest, ALargePictureOverhangsOnBothSides) {
    EXPECT_EQ(CenteredOnScreen(kScreenSize, {3000, 2000}), (PixelRect{-540, -460, 2460, 1540}));
}

TEST(CenteredOnScreenTest, TruncatesAnOddOverhangTowardsZero) {
    EXPECT_EQ(CenteredOnScreen(kScreenSize, {1921, 1083}), (PixelRect{0, -1, 1921, 1082}));
}

TEST(CenteredOnScreenTest, PutsAnEmptyPictureAtTheCenter) {
    EXPECT_EQ(CenteredOnScreen(kScreenSize, {}), (PixelRect{960, 540, 960, 540}));
}

TEST(CenteredOnScreenTest, DoesNotOverflowWithTheLargestSizes) {
    constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
    constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();
    EXPECT_EQ(CenteredOnScreen({}, {most, most}),
              (PixelRect{-1073741823, -1073741823, 1073741824, 1073741824}));
    EXPECT_EQ(CenteredOnScreen(kScreenSize, {least, 0}).left, 1073742784);
}

constexpr PixelRect kPlace{10, 40, 200, 80};

TEST(TextRoomTest, ATextThatFitsKeepsItsPlace) {
    EXPECT_EQ(MakeRoom(kPlace, 13, 30, 90), kPlace);
    EXPECT_EQ(MakeRoom(kPlace, 40, 30, 90), kPlace);
}

TEST(TextRoomTest, GrowsDownwardsFirst) {
    EXPECT_EQ(MakeRoom(kPlace, 45, 30, 90), (PixelRect{10, 40, 200, 85}));
    EXPECT_EQ(MakeRoom(kPlace, 50, 30, 90), (PixelRect{10, 40, 200, 90}));
}

TEST(TextRoomTest, GrowsUpwardsWhenThereIsNoMoreRoomBelow) {
    EXPECT_EQ(MakeRoom(kPlace, 53, 30, 90), (PixelRect{10, 37, 200, 90}));
    EXPECT_EQ(MakeRoom(kPlace, 100, 30, 90), (PixelRect{10, 30, 200, 90}));
}

TEST(TextRoomTest, LimitsInsideThePlaceDoNotShrinkIt) {
    EXPECT_EQ(MakeRoom(kPlace, 100, 50, 70), kPlace);
}

}  // namespace
}  // namespace tarn
