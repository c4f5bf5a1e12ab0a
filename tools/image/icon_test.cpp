#include "tools/image/icon.h"

#include <gtest/gtest.h>

#include "tools/common/failure.h"

namespace tarn::tools {
namespace {

// A PNG picture of 2 x 1 pixels: red, and blue at half opacity.
constexpr std::uint8_t kTwoPixels[] = {
    0x89, 0x50, 0x4E, 0x47, 0x0D, 0x0A, 0x1A, 0x0A, 0x00, 0x00, 0x00, 0x0D, 0x49, 0x48, 0x44,
    0x52, 0x00, 0x00, 0x00, 0x02, 0x00, 0x00, 0x00, 0x01, 0x08, 0x06, 0x00, 0x00, 0x00, 0xF4,
    0x22, 0x7F, 0x8A, 0x00, 0x00, 0x00, 0x0E, 0x49, 0x44, 0x41, 0x54, 0x78, 0x9C, 0x63, 0xF8,
    0xCF, 0xC0, 0x00, 0x42, 0x0D, 0x00, 0x0F, 0x7A, 0x03, 0x7E, 0x77, 0xE9, 0x7F, 0x97, 0x00,
    0x00, 0x00, 0x00, 0x49, 0x45, 0x4E, 0x44, 0xAE, 0x42, 0x60, 0x82};

ByteSpan TwoPixels() {
    return std::as_bytes(std::span(kTwoPixels));
}

Bytes IconFileOf(const std::vector<std::size_t>& sizes) {
    ByteWriter writer;
    writer.U16(0);
    writer.U16(1);
    writer.U16(static_cast<std::uint32_t>(sizes.size()));
    std::size_t offset = 6 + 16 * sizes.size();
    for (const std::size_t size : sizes) {
        writer.U16(0x2010);  // 16 x 32
        writer.U16(0);
        writer.U32(1U | 32U << 16);
        writer.U32(static_cast<std::uint32_t>(size));
        writer.U32(static_cast<std::uint32_t>(offset));
        offset += size;
    }
    for (const std::size_t size : sizes) writer.Put(Bytes(size, std::byte{'p'}));
    return writer.Take();
}

TEST(Icon, ReadsTheImagesOfAnIconFile) {
    const auto pictures = ReadIcon(IconFileOf({40, 50}));
    ASSERT_EQ(pictures.size(), 2U);
    EXPECT_EQ(pictures[0].width, 16U);
    EXPECT_EQ(pictures[0].height, 32U);
    EXPECT_EQ(pictures[1].content.size(), 50U);
}

TEST(Icon, RejectsOtherAndCorruptFiles) {
    EXPECT_THROW(ReadIcon({}), Failure);
    EXPECT_THROW(ReadIcon(Bytes(100)), Failure);
    const Bytes whole = IconFileOf({40, 50});
    for (std::size_t size = 0; size < whole.size(); ++size) {
        EXPECT_THROW(ReadIcon(ByteSpan(whole).first(size)), Failure) << size;
    }
    for (std::size_t size = 0; size + 12 < TwoPixels().size(); ++size) {
        EXPECT_THROW(ReadIcon(TwoPixels().first(size)), Failure) << size;
    }
}

TEST(Icon, RejectsImagesThatShareTheirBytes) {
    Bytes content = IconFileOf({40, 50});
    StoreU32(content, 6 + 16 + 12, ByteReader(content).U32(6 + 12));
    EXPECT_NO_THROW(ReadIcon(content)) << "smaller than the file in total";
    Bytes many = IconFileOf(std::vector<std::size_t>(100, 40));
    for (std::size_t number = 0; number < 100; ++number) {
        StoreU32(many, 6 + number * 16 + 8, 40 * 100);
        StoreU32(many, 6 + number * 16 + 12, 6 + 16 * 100);
    }
    EXPECT_THROW(ReadIcon(many), Failure);
}

TEST(Icon, ResizesAPngToAllSizes) {
    const auto pictures = ReadIcon(TwoPixels());
    std::vector<std::uint32_t> sizes;
    for (const IconPicture& picture : pictures) sizes.push_back(picture.width);
    EXPECT_EQ(sizes, (std::vector<std::uint32_t>{16, 24, 32, 48, 64, 256}));
    const ByteReader small(pictures.front().content);
    EXPECT_EQ(small.Size(), 40U + 16 * 16 * 4 + 16 * 4);
    EXPECT_EQ(small.U32(0), 40U);
    EXPECT_EQ(small.U32(4), 16U);
    EXPECT_EQ(small.U32(8), 32U) << "the height counts both pictures of a bitmap";
    EXPECT_EQ(small.U16(14), 32);
    EXPECT_EQ(ByteReader(pictures.back().content).U32(0), 0x474E5089U) << "a PNG file";
}

TEST(Icon, KeepsColorsAndAlphaAndCentresTheImage) {
    const Bytes content = ReadIcon(TwoPixels()).front().content;
    const ByteReader bitmap(content);
    // Rows are stored from the bottom. The picture's one row of two is the upper half.
    const auto pixel = [&](std::size_t x, std::size_t y) {
        return bitmap.U32(40 + ((15 - y) * 16 + x) * 4);
    };
    EXPECT_EQ(pixel(1, 1), 0xFFFF0000U);
    EXPECT_EQ(pixel(14, 1) & 0xFFFFFFU, 0x0000FFU);
    EXPECT_NEAR(pixel(14, 1) >> 24, 0x80U, 1U);
    EXPECT_EQ(pixel(1, 14) >> 24, 0U);
    // The 1-bit mask for readers without alpha: set where a pixel is transparent.
    const std::size_t bits = 40 + 16 * 16 * 4;
    EXPECT_EQ(bitmap.U8(bits), 0xFF) << "the lowest row";
    EXPECT_EQ(bitmap.U8(bits + 15 * 4), 0) << "the highest";
}

TEST(Icon, ReplacesTheFirstGroup) {
    ResourceTree tree;
    SetIcon(tree, ReadIcon(IconFileOf({40, 50, 60})));
    EXPECT_EQ(tree[kResourceIcon].size(), 3U);
    SetIcon(tree, ReadIcon(IconFileOf({44})));
    EXPECT_EQ(tree[kResourceIcon].size(), 1U);
    EXPECT_EQ(tree[kResourceIconGroup].size(), 1U);
    const ByteReader group(*FindResource(tree, kResourceIconGroup, 1));
    EXPECT_EQ(group.Size(), 6U + 14U);
    EXPECT_EQ(group.U32(6 + 8), 44U);
    EXPECT_EQ(FindResource(tree, kResourceIcon, group.U16(6 + 12))->size(), 44U);
}

TEST(Icon, KeepsTheImagesOfOtherGroups) {
    ResourceTree tree;
    SetIcon(tree, ReadIcon(IconFileOf({40, 50})));
    // A second group that shows the first one's second picture.
    tree[kResourceIconGroup][2] = tree[kResourceIconGroup][1];
    ReplaceResource(tree, kResourceIcon, 9, Bytes(99));
    SetIcon(tree, ReadIcon(IconFileOf({44})));
    EXPECT_EQ(FindResource(tree, kResourceIcon, 1)->size(), 40U);
    EXPECT_EQ(FindResource(tree, kResourceIcon, 2)->size(), 50U);
    EXPECT_EQ(FindResource(tree, kResourceIcon, 3)->size(), 44U);
    EXPECT_EQ(FindResource(tree, kResourceIcon, 9)->size(), 99U);
}

TEST(Icon, IsRejectedWhenAllIdsAreUsed) {
    ResourceTree tree;
    for (unsigned number = 1; number <= UINT16_MAX; ++number) {
        tree[kResourceIcon][static_cast<std::uint16_t>(number)][7] = {};
    }
    EXPECT_THROW(SetIcon(tree, ReadIcon(IconFileOf({40}))), Failure);
    tree[kResourceIcon].erase(ResourceName(500));
    EXPECT_NO_THROW(SetIcon(tree, ReadIcon(IconFileOf({40}))));
    EXPECT_EQ(FindResource(tree, kResourceIcon, 500)->size(), 40U);
}

}  // namespace
}  // namespace tarn::tools
