#include "ui/text_room.h"

#include <gtest/gtest.h>

namespace tarn {
namespace {

constexpr PixelRect kPlace{10, 40, 200, 80};

TEST(TextRoomTest, ATextThatFitsStaysWhereItIs) {
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
