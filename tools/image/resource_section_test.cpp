#include "tools/image/resource_section.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tools/common/failure.h"

namespace tarn::tools {
namespace {

constexpr std::uint32_t kAddress = 0x5000;

Bytes BytesOf(std::string_view text) {
    const auto* const first = reinterpret_cast<const std::byte*>(text.data());
    return Bytes(first, first + text.size());
}

ResourceTree SomeTree() {
    ResourceTree tree;
    ReplaceResource(tree, kResourceVersion, 1, BytesOf("version"));
    ReplaceResource(tree, kResourceData, std::u16string(u"SETTINGS"), BytesOf("settings"));
    ReplaceResource(tree, kResourceData, 7, BytesOf(""));
    ReplaceResource(tree, std::u16string(u"TYPELIB"), std::u16string(u"\u00C4"), BytesOf("x"));
    tree[kResourceVersion][1][0x407] = {BytesOf("Fassung"), 1252};
    return tree;
}

TEST(ResourceSection, ReadsBackWhatWasWritten) {
    const ResourceTree tree = SomeTree();
    const Bytes section = WriteResourceSection(tree, kAddress);
    const ResourceTree read = ReadResourceSection(section, kAddress);
    EXPECT_EQ(WriteResourceSection(read, kAddress), section);
    EXPECT_EQ(*FindResource(read, kResourceData, std::u16string(u"SETTINGS")), BytesOf("settings"));
    EXPECT_EQ(read.at(kResourceVersion).at(1).at(0x407).codePage, 1252U);
    EXPECT_EQ(*FindResource(read, kResourceVersion, 1), BytesOf("Fassung"));
    EXPECT_EQ(FindResource(read, kResourceVersion, 2), nullptr);
    EXPECT_EQ(FindResource(read, kResourceIcon, 1), nullptr);
}

TEST(ResourceSection, SortsNamesBeforeNumbers) {
    const Bytes section = WriteResourceSection(SomeTree(), kAddress);
    const ByteReader reader(section);
    EXPECT_EQ(reader.U16(12), 1) << "named types";
    EXPECT_EQ(reader.U16(14), 2) << "numbered types";
    EXPECT_NE(reader.U32(16) & 0x80000000U, 0U);
    EXPECT_EQ(reader.U32(24), kResourceData);
    EXPECT_EQ(reader.U32(32), kResourceVersion);
}

TEST(ResourceSection, SortsNamesCaseInsensitively) {
    const ResourceName a(std::u16string(u"alpha"));
    const ResourceName b(std::u16string(u"BETA"));
    EXPECT_TRUE(a < b);
    EXPECT_FALSE(b < a);
    EXPECT_TRUE(b < ResourceName(1));
    EXPECT_TRUE(ResourceName(1) < ResourceName(2));
}

TEST(ResourceSection, RejectsOffsetsOutOfBounds) {
    const Bytes section = WriteResourceSection(SomeTree(), kAddress);
    EXPECT_THROW(ReadResourceSection({}, kAddress), Failure);
    EXPECT_THROW(ReadResourceSection(section, kAddress + 0x10000), Failure);
    EXPECT_THROW(ReadResourceSection(section, kAddress - 0x1000), Failure);
    for (std::size_t size = 0; size + 8 < section.size(); ++size) {
        EXPECT_THROW(ReadResourceSection(ByteSpan(section).first(size), kAddress), Failure);
    }
}

TEST(ResourceSection, RejectsCyclesAndOtherDepths) {
    ResourceTree tree;
    ReplaceResource(tree, kResourceData, 1, BytesOf("x"));
    Bytes section = WriteResourceSection(tree, kAddress);
    // The first entry points back to its own directory.
    StoreU32(section, 20, 0x80000000);
    EXPECT_THROW(ReadResourceSection(section, kAddress), Failure);
    StoreU32(section, 20, 24);
    EXPECT_THROW(ReadResourceSection(section, kAddress), Failure);
}

TEST(ResourceSection, RejectsResourcesThatShareTheirBytesExcessively) {
    ResourceTree tree;
    for (std::uint16_t number = 0; number < 100; ++number) {
        ReplaceResource(tree, kResourceData, number, Bytes(100));
    }
    Bytes section = WriteResourceSection(tree, kAddress);
    // Each claims nearly the whole section: entries of 16 bytes behind 1 + 1 + 100 directories.
    const std::size_t entries = 16 + 8 + 16 + 100 * 8 + 100 * 24;
    ASSERT_EQ(ByteReader(section).U32(entries + 4), 100U);
    for (std::size_t number = 0; number < 100; ++number) {
        StoreU32(section, entries + number * 16, kAddress);
        StoreU32(section, entries + number * 16 + 4, static_cast<std::uint32_t>(section.size()));
    }
    EXPECT_THROW(ReadResourceSection(section, kAddress), Failure);
}

}  // namespace
}  // namespace tarn::tools
