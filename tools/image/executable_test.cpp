#include "tools/image/executable.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tools/common/failure.h"
#include "tools/image/small_executable.h"

namespace tarn::tools {
namespace {

constexpr std::size_t kUnit = SmallExecutable::kUnit;
constexpr std::size_t kPage = SmallExecutable::kPage;

ResourceTree TreeOf(std::size_t size) {
    ResourceTree tree;
    ReplaceResource(tree, kResourceData, std::u16string(u"SETTINGS"), Bytes(size, std::byte{'x'}));
    return tree;
}

std::size_t SizeOfSettings(const Bytes& content) {
    const ResourceTree tree = Executable(content).Resources();
    const Bytes* const found = FindResource(tree, kResourceData, std::u16string(u"SETTINGS"));
    return found == nullptr ? 0 : found->size();
}

Bytes WithResources(const Bytes& content, std::size_t size) {
    Executable executable(content);
    executable.SetResources(TreeOf(size));
    return executable.Content();
}

bool IsRefused(const Bytes& content) {
    try {
        const Executable executable(content);
        static_cast<void>(executable.Resources());
    } catch (const Failure&) {
        return true;
    }
    return false;
}

TEST(ExecutableTest, GrowsResourcesBeforeTheRelocations) {
    const Bytes old = SmallExecutable({".text", ".rsrc", ".reloc"}).Content();
    const Bytes grown = WithResources(old, 2 * kPage);
    EXPECT_EQ(SizeOfSettings(grown), 2 * kPage);
    const ByteReader reader(grown);
    // The relocations follow, in memory as in the file, and their directory knows.
    const std::uint32_t address = reader.U32(SmallExecutable::Directory(5));
    EXPECT_EQ(address, 5 * kPage);
    EXPECT_EQ(reader.U32(SmallExecutable::Header(2) + 12), address);
    EXPECT_EQ(reader.U32(SmallExecutable::Optional(56)), address + kPage);
    const std::size_t offset = reader.U32(SmallExecutable::Header(2) + 20);
    EXPECT_EQ(offset % kUnit, 0U);
    EXPECT_EQ(reader.U8(offset), 3);
    EXPECT_EQ(offset + kUnit, grown.size());
    // The code stays where it was.
    EXPECT_TRUE(std::equal(&old[kUnit], &old[2 * kUnit], &grown[kUnit]));
}

TEST(ExecutableTest, GivesTheSameBytesForRepeatedChanges) {
    const Bytes old = SmallExecutable({".text", ".rsrc", ".reloc"}).Content();
    const Bytes once = WithResources(old, 5000);
    EXPECT_EQ(WithResources(once, 5000), once);
    EXPECT_EQ(WithResources(WithResources(once, 100000), 5000), once);
}

TEST(ExecutableTest, AppendsASectionWhenOthersFollow) {
    for (const auto& sections :
         {std::vector<std::string_view>{".text"}, {".rsrc", ".text"}, {".text", ".reloc"}}) {
        const SmallExecutable executable(sections);
        const Bytes changed = WithResources(executable.Content(), 3000);
        EXPECT_EQ(SizeOfSettings(changed), 3000U);
        const ByteReader reader(changed);
        const std::size_t count = sections.size();
        EXPECT_EQ(reader.U16(SmallExecutable::kPeHeader + 6), count + 1);
        EXPECT_EQ(reader.U32(SmallExecutable::Header(count) + 12), kPage * (count + 1));
        EXPECT_EQ(reader.U32(SmallExecutable::Optional(56)), kPage * (count + 2));
        // The next time it is the last section and changes its size in place.
        const Bytes again = WithResources(changed, 9000);
        EXPECT_EQ(SizeOfSettings(again), 9000U);
        EXPECT_EQ(ByteReader(again).U16(SmallExecutable::kPeHeader + 6), count + 1);
    }
}

TEST(ExecutableTest, KeepsASectionThatOtherDirectoriesReferTo) {
    // Debug data among the resources: its offset is corrected there, and not in what is new.
    SmallExecutable made({".text", ".rsrc"});
    made.Set32(SmallExecutable::Directory(6), 2 * kPage + 0x40)
        .Set32(SmallExecutable::Directory(6) + 4, 28);
    const Bytes changed = WithResources(made.Content(), kUnit);
    const ResourceTree tree = Executable(changed).Resources();
    EXPECT_EQ(*FindResource(tree, kResourceData, std::u16string(u"SETTINGS")),
              Bytes(kUnit, std::byte{'x'}));
    EXPECT_EQ(ByteReader(changed).U16(SmallExecutable::kPeHeader + 6), 3);
}

TEST(ExecutableTest, RejectsADirectoryOutsideTheSections) {
    SmallExecutable made({".text"});
    made.Set32(SmallExecutable::Directory(6), 2 * kPage)
        .Set32(SmallExecutable::Directory(6) + 4, 28);
    EXPECT_THROW(WithResources(made.Content(), kUnit), Failure);
}

TEST(ExecutableTest, KeepsTheOverlay) {
    const Bytes old = SmallExecutable({".text", ".rsrc"}).Append("appended").Content();
    Executable executable(old);
    EXPECT_EQ(executable.Overlay().size(), 8U);
    EXPECT_EQ(executable.OverlayOffset(), 3 * kUnit);
    executable.SetResources(TreeOf(1000));
    const Bytes changed = executable.Content();
    EXPECT_EQ(executable.OverlayOffset() + 8, changed.size());
    EXPECT_EQ(Executable(changed).Overlay(), executable.Overlay());
}

TEST(ExecutableTest, MovesTheOffsetsOfSymbolsAndDebugData) {
    SmallExecutable small({".text", ".rsrc", ".reloc"});
    small.Append("symbols").Set32(SmallExecutable::kPeHeader + 12, 4 * kUnit);
    // A debug directory in the first section, whose data lies in the third.
    small.Set32(SmallExecutable::Directory(6), kPage).Set32(SmallExecutable::Directory(6) + 4, 28);
    small.Set32(kUnit + 24, 3 * kUnit + 16);
    const Bytes changed = WithResources(small.Content(), kPage);
    const ByteReader reader(changed);
    EXPECT_EQ(reader.U32(SmallExecutable::kPeHeader + 12), changed.size() - 7);
    EXPECT_EQ(reader.U32(kUnit + 24), reader.U32(SmallExecutable::Header(2) + 20) + 16);
}

TEST(ExecutableTest, RemovesASignatureOnRequest) {
    SmallExecutable small({".text", ".rsrc"});
    small.Append("jarsignature....").Set32(SmallExecutable::Directory(4), 3 * kUnit + 3);
    small.Set32(SmallExecutable::Directory(4) + 4, 13);
    Executable executable(small.Content());
    EXPECT_TRUE(executable.IsSigned());
    EXPECT_EQ(executable.Overlay().size(), 3U);
    EXPECT_THROW(executable.Content(), Failure);
    executable.DropSignature();
    const Bytes content = executable.Content();
    EXPECT_EQ(content.size(), 3 * kUnit + 3);
    EXPECT_EQ(ByteReader(content).U32(SmallExecutable::Directory(4)), 0U);
}

TEST(ExecutableTest, RejectsOtherFiles) {
    EXPECT_TRUE(IsRefused({}));
    EXPECT_TRUE(IsRefused(Bytes(1000)));
    EXPECT_TRUE(IsRefused(SmallExecutable({".text"}).Set32(0x3C, 0xFFFFFFF0).Content()));
    EXPECT_TRUE(IsRefused(SmallExecutable({".text"}).Set32(0x3C, 2 * kUnit - 8).Content()));
    EXPECT_TRUE(
        IsRefused(SmallExecutable({".text"}).Set16(SmallExecutable::Optional(0), 7).Content()));
}

TEST(ExecutableTest, RejectsHeadersThatContradictTheFile) {
    using Small = SmallExecutable;
    const auto broken = [](std::size_t at, std::size_t value) {
        return IsRefused(Small({".text", ".rsrc"}).Set32(at, value).Content());
    };
    EXPECT_TRUE(broken(Small::Optional(32), 3000)) << "alignment of sections";
    EXPECT_TRUE(broken(Small::Optional(36), 0)) << "alignment in the file";
    EXPECT_TRUE(broken(Small::Optional(108), 0x7FFFFFFF)) << "number of directories";
    EXPECT_TRUE(broken(Small::Header(1) + 16, 0xFFFFFFFF)) << "size of a section";
    EXPECT_TRUE(broken(Small::Header(1) + 20, kUnit)) << "sections overlap in the file";
    EXPECT_TRUE(broken(Small::Header(1) + 12, kPage)) << "sections overlap in memory";
    EXPECT_TRUE(broken(Small::Header(0) + 20, 16)) << "a section in the headers";
    EXPECT_TRUE(broken(Small::Directory(4), 16)) << "a signature in the headers";
    EXPECT_TRUE(broken(Small::Directory(2), 0x12345678)) << "resources outside";
    EXPECT_TRUE(broken(Small::kPeHeader + 6, 0x0000FFFF)) << "number of sections";
}

TEST(ExecutableTest, RejectsEveryTruncatedFile) {
    const Bytes whole = WithResources(SmallExecutable({".text", ".rsrc"}).Content(), 600);
    for (std::size_t size = 0; size < whole.size(); ++size) {
        EXPECT_TRUE(IsRefused(Bytes(whole.begin(), whole.begin() + static_cast<long>(size))))
            << size;
    }
}

TEST(ExecutableTest, ReportsAMissingSectionHeaderSlot) {
    // Three section headers fill the first 512 bytes.
    Executable executable(SmallExecutable({".rsrc", ".text", ".data"}).Content());
    EXPECT_THROW(executable.SetResources(TreeOf(10)), Failure);
}

TEST(ImageChecksumTest, TreatsTheFieldAsZeroAndAddsTheLength) {
    const Bytes content = {std::byte{1}, std::byte{2}, std::byte{9}, std::byte{9},
                           std::byte{9}, std::byte{9}, std::byte{3}};
    EXPECT_EQ(ImageChecksum(content, 2), 0x0201U + 0x0003U + 7U);
    // The carry out of 16 bits is added again.
    EXPECT_EQ(ImageChecksum(Bytes(8, std::byte{0xFF}), 6), 0xFFFFU + 8U);
}

}  // namespace
}  // namespace tarn::tools
