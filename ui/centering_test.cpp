#include "ui/centering.h"

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

}  // namespace
}  // namespace tarn
