#include "tools/java/zip_end.h"

#include <gtest/gtest.h>

#include "tools/common/failure.h"
#include "tools/java/zip_of.h"

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

TEST(ZipEnd, FindsAZipBetweenOtherData) {
    Bytes content = ZipOf().Add("a", "text").Content();
    const std::size_t size = content.size();
    content.insert(content.begin(), 300, std::byte{1});
    content.insert(content.end(), 700, std::byte{2});
    const auto place = FindZip(content);
    ASSERT_TRUE(place);
    EXPECT_EQ(place->begin, 300U);
    EXPECT_EQ(place->end, 300 + size);
}

TEST(ZipEnd, AcceptsAnEmptyZipOnlyAtTheEnd) {
    Bytes content = ZipOf().Content();
    content.insert(content.begin(), 10, std::byte{1});
    EXPECT_TRUE(FindZip(content));
    content.push_back(std::byte{0});
    EXPECT_FALSE(FindZip(content));
}

TEST(ZipEnd, RequiresMoreThanTheSignature) {
    EXPECT_FALSE(FindZip({}));
    Bytes content = ZipOf().Add("a", "text").Content();
    // The directory's size, which then reaches over the file's begin.
    content[content.size() - 7] = std::byte{0x7F};
    EXPECT_FALSE(FindZip(content));
}

TEST(ZipEnd, SearchesAsFarAsTheLongestComment) {
    Bytes content = ZipOf().Add("a", "text").Content();
    content.insert(content.end(), 65535, std::byte{2});
    EXPECT_TRUE(FindZip(content));
    content.push_back(std::byte{2});
    EXPECT_FALSE(FindZip(content));
}

// The end of a zip file as programs write it that always give the zip64 records.
Bytes WithZip64Records(const Bytes& zip) {
    std::string text(reinterpret_cast<const char*>(zip.data()), zip.size());
    std::string end = text.substr(text.size() - 22);
    text.resize(text.size() - 22);
    const std::string position(1, static_cast<char>(text.size()));
    const std::string zeros(8, '\0');
    const std::string entries = end.substr(10, 2) + zeros.substr(2);
    text += "PK\x06\x06" + ("\x2C" + zeros.substr(1)) + zeros.substr(4) + zeros + entries +
            entries + end.substr(12, 4) + zeros.substr(4) + end.substr(16, 4) + zeros.substr(4);
    text += "PK\x06\x07" + zeros.substr(4) + position + zeros.substr(1) + "\x01" + zeros.substr(5);
    text += end.substr(0, 8) + std::string(12, '\xFF') + end.substr(20);
    const auto* const first = reinterpret_cast<const std::byte*>(text.data());
    return Bytes(first, first + text.size());
}

TEST(ZipEnd, ReadsTheNumbersOfZip64) {
    const Bytes plain = ZipOf().Add("a", "text").Add("b", "").Content();
    const Bytes large = WithZip64Records(plain);
    ASSERT_EQ(large.size(), plain.size() + 56 + 20);
    const auto place = FindZip(large);
    ASSERT_TRUE(place);
    EXPECT_EQ(place->begin, 0U);
    EXPECT_EQ(place->end, large.size());
    EXPECT_EQ(place->entries, 2U);
    // Behind other bytes the position in the locator is wrong.
    Bytes behind(50, std::byte{1});
    behind.insert(behind.end(), large.begin(), large.end());
    ASSERT_TRUE(FindZip(behind));
    EXPECT_EQ(FindZip(behind)->begin, 50U);
}

TEST(ZipEnd, RemovesZip64Records) {
    const Bytes plain = ZipOf().Add("a", "text").Add("b", "").Content();
    EXPECT_EQ(WithoutZip64Records(plain), plain);
    EXPECT_EQ(WithoutZip64Records(WithZip64Records(plain)), plain);
    EXPECT_THROW(WithoutZip64Records(Bytes(100)), Failure);
}

}  // namespace
}  // namespace tarn::tools
