#include "tools/jar/zip_end.h"

#include <gtest/gtest.h>

#include "tools/jar/zip_of.h"

namespace tarn::tools {
namespace {

TEST(ZipEnd, FindsTheWholeFile) {
    const Bytes zip = ZipOf().Add("a", "text").Add("b", "").Content();
    const auto place = FindZip(zip);
    ASSERT_TRUE(place);
    EXPECT_EQ(place->begin, 0U);
    EXPECT_EQ(place->end, zip.size());
    EXPECT_EQ(place->entries, 2U);
    EXPECT_FALSE(place->hasAbsoluteOffsets);
}

TEST(ZipEnd, FindsItBetweenOtherBytes) {
    Bytes content = ZipOf().Add("a", "text").Content();
    const std::size_t size = content.size();
    content.insert(content.begin(), 300, std::byte{1});
    content.insert(content.end(), 700, std::byte{2});
    const auto place = FindZip(content);
    ASSERT_TRUE(place);
    EXPECT_EQ(place->begin, 300U);
    EXPECT_EQ(place->end, 300 + size);
}

TEST(ZipEnd, AnEmptyZipHasToReachToTheEnd) {
    Bytes content = ZipOf().Content();
    content.insert(content.begin(), 10, std::byte{1});
    EXPECT_TRUE(FindZip(content));
    content.push_back(std::byte{0});
    EXPECT_FALSE(FindZip(content));
}

TEST(ZipEnd, IsNotTakenInByItsMarkAlone) {
    EXPECT_FALSE(FindZip({}));
    Bytes content = ZipOf().Add("a", "text").Content();
    // The directory's size, which then reaches over the file's begin.
    content[content.size() - 7] = std::byte{0x7F};
    EXPECT_FALSE(FindZip(content));
}

TEST(ZipEnd, LooksNoFurtherBackThanTheLongestCommentReaches) {
    Bytes content = ZipOf().Add("a", "text").Content();
    content.insert(content.end(), 65535, std::byte{2});
    EXPECT_TRUE(FindZip(content));
    content.push_back(std::byte{2});
    EXPECT_FALSE(FindZip(content));
}

}  // namespace
}  // namespace tarn::tools
