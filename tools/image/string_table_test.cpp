#include "tools/image/string_table.h"

#include <gtest/gtest.h>

#include "tools/common/failure.h"

namespace tarn::tools {
namespace {

TEST(StringTable, KeepsTheOtherStringsOfABlock) {
    ResourceTree tree;
    SetString(tree, 208, "first");
    SetString(tree, 223, "last \xE2\x82\xAC\n");
    SetString(tree, 210, "middle");
    EXPECT_EQ(tree[kResourceString].size(), 1U);
    EXPECT_EQ(StringOf(tree, 208), "first");
    EXPECT_EQ(StringOf(tree, 210), "middle");
    EXPECT_EQ(StringOf(tree, 223), "last \xE2\x82\xAC\n");
    EXPECT_EQ(StringOf(tree, 209), "");
    EXPECT_EQ(StringOf(tree, 9), "");
    SetString(tree, 210, "");
    EXPECT_EQ(StringOf(tree, 210), "");
}

TEST(StringTable, AcceptsEveryId) {
    ResourceTree tree;
    SetString(tree, 0, "zero");
    SetString(tree, 65535, "most");
    EXPECT_EQ(tree[kResourceString].begin()->first.id, 1);
    EXPECT_EQ(tree[kResourceString].rbegin()->first.id, 4096);
    EXPECT_EQ(StringOf(tree, 0) + StringOf(tree, 65535), "zeromost");
}

TEST(StringTable, ChangesEveryLanguage) {
    ResourceTree tree;
    SetString(tree, 210, "English");
    tree[kResourceString][14][0x407] = tree[kResourceString][14][kEnglishUnitedStates];
    SetString(tree, 210, "new");
    EXPECT_EQ(tree[kResourceString][14][0x407].content,
              tree[kResourceString][14][kEnglishUnitedStates].content);
}

TEST(StringTable, RejectsACorruptBlockAndAnOverlongText) {
    ResourceTree tree;
    ReplaceResource(tree, kResourceString, 14, Bytes(5));
    EXPECT_THROW(StringOf(tree, 210), Failure);
    EXPECT_THROW(SetString(tree, 210, "x"), Failure);
    EXPECT_THROW(SetString(tree, 1, std::string(65536, 'x')), Failure);
}

}  // namespace
}  // namespace tarn::tools
