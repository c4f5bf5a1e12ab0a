#include "ui/link_layout.h"

#include <gtest/gtest.h>

namespace tarn {
namespace {

TEST(LinkLayoutTest, TheStaticsStyleSetsTheAlignment) {
    EXPECT_EQ(LinkAlignmentOf(0x50000000), LinkAlignment::Left);
    EXPECT_EQ(LinkAlignmentOf(0x50000001), LinkAlignment::Center);
    EXPECT_EQ(LinkAlignmentOf(0x50000002), LinkAlignment::Right);
    EXPECT_EQ(LinkAlignmentOf(0x5000000C), LinkAlignment::Left);
    // "No prefix" and "notify" stand beside the kind.
    EXPECT_EQ(LinkAlignmentOf(0x50000181), LinkAlignment::Center);
}

TEST(LinkLayoutTest, PictureKindsShowNoText) {
    for (std::uint32_t kind = 0; kind <= 255; ++kind) {
        const bool picture = (kind >= 3 && kind <= 9) || (kind >= 13 && kind <= 15);
        EXPECT_EQ(ShowsText(0x50000100 | kind), !picture) << kind;
    }
}

TEST(LinkLayoutTest, ALinkAloneIsAligned) {
    const PixelSize link{40, 13};
    EXPECT_EQ(LayOutLink(100, LinkAlignment::Left, {}, link, {}).link, (PixelRect{0, 0, 40, 13}));
    EXPECT_EQ(LayOutLink(100, LinkAlignment::Center, {}, link, {}).link,
              (PixelRect{30, 0, 70, 13}));
    EXPECT_EQ(LayOutLink(100, LinkAlignment::Right, {}, link, {}).link,
              (PixelRect{60, 0, 100, 13}));
}

TEST(LinkLayoutTest, TheLinkFollowsThePrefixAndTheSuffixFollowsTheLink) {
    const LinkLayout left = LayOutLink(100, LinkAlignment::Left, {10, 13}, {20, 14}, {30, 13});
    EXPECT_EQ(left.prefix, (PixelRect{0, 0, 10, 13}));
    EXPECT_EQ(left.link, (PixelRect{10, 0, 30, 14}));
    EXPECT_EQ(left.suffix, (PixelRect{30, 0, 60, 13}));

    const LinkLayout right = LayOutLink(100, LinkAlignment::Right, {10, 13}, {20, 14}, {30, 13});
    EXPECT_EQ(right.prefix, (PixelRect{40, 0, 50, 13}));
    EXPECT_EQ(right.link, (PixelRect{50, 0, 70, 14}));
    EXPECT_EQ(right.suffix, (PixelRect{70, 0, 100, 13}));
}

TEST(LinkLayoutTest, WhatIsTooWideBeginsAtTheLeftEdge) {
    for (const LinkAlignment alignment :
         {LinkAlignment::Left, LinkAlignment::Center, LinkAlignment::Right})
        EXPECT_EQ(LayOutLink(30, alignment, {}, {40, 13}, {}).link, (PixelRect{0, 0, 40, 13}));
}

TEST(LinkLayoutTest, TheToolRecordGrewWithWindowsVista) {
    EXPECT_EQ(ToolRecordSize(true), 72u);
    EXPECT_EQ(ToolRecordSize(false), 64u);
}

}  // namespace
}  // namespace tarn
