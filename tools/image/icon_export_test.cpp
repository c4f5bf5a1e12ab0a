#include "tools/image/icon_export.h"

#include <gtest/gtest.h>

#include "tools/common/failure.h"
#include "tools/image/icon.h"

namespace tarn::tools {
namespace {

IconPicture PictureOf(std::uint32_t size, std::byte content) {
    IconPicture picture;
    picture.width = picture.height = size;
    picture.content = Bytes(40 + size, content);
    return picture;
}

TEST(IconExport, GivesTheFileWhoseImagesWereSet) {
    ResourceTree tree;
    SetIcon(tree, {PictureOf(16, std::byte{1}), PictureOf(256, std::byte{2})});
    const std::vector<IconPicture> pictures = ReadIconFile(IconFileOf(tree));
    ASSERT_EQ(pictures.size(), 2U);
    EXPECT_EQ(pictures[0].width, 16U);
    EXPECT_EQ(pictures[0].content, Bytes(56, std::byte{1}));
    EXPECT_EQ(pictures[1].width, 256U);
    EXPECT_EQ(pictures[1].content, Bytes(296, std::byte{2}));
}

TEST(IconExport, IsEmptyWithoutAnIcon) {
    EXPECT_TRUE(IconFileOf({}).empty());
}

TEST(IconExport, RefusesAGroupWithoutItsImages) {
    ResourceTree tree;
    SetIcon(tree, {PictureOf(16, std::byte{1})});
    tree.erase(kResourceIcon);
    EXPECT_THROW(IconFileOf(tree), Failure);
}

TEST(IconExport, RefusesATruncatedGroup) {
    ResourceTree tree;
    SetIcon(tree, {PictureOf(16, std::byte{1})});
    tree[kResourceIconGroup].begin()->second.begin()->second.content.resize(10);
    EXPECT_THROW(IconFileOf(tree), Failure);
}

}  // namespace
}  // namespace tarn::tools
