#include "runtime/pe_header.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace tarn {
namespace {

std::vector<std::byte> Image(std::size_t size, std::uint32_t headers) {
    std::vector<std::byte> bytes(size);
    bytes[0] = std::byte{'M'};
    bytes[1] = std::byte{'Z'};
    for (std::size_t i = 0; i < 4; ++i) bytes[60 + i] = std::byte(headers >> (8 * i) & 0xFF);
    return bytes;
}

TEST(PeHeaderTest, TheMachineFieldMustBeInsideTheFile) {
    EXPECT_TRUE(HasPeHeaders(Image(70, 64)));
    EXPECT_FALSE(HasPeHeaders(Image(70, 65)));
    EXPECT_TRUE(HasPeHeaders(Image(4096, 4090)));
    EXPECT_FALSE(HasPeHeaders(Image(4096, 4091)));
}

TEST(PeHeaderTest, PeHeadersMayOverlapTheDosHeader) {
    EXPECT_TRUE(HasPeHeaders(Image(64, 4)));
    EXPECT_TRUE(HasPeHeaders(Image(64, 58)));
    EXPECT_FALSE(HasPeHeaders(Image(64, 59)));
}

TEST(PeHeaderTest, OffsetsFarOutsideTheFileDoNotWrap) {
    for (const std::uint32_t headers : {0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFAU, 0xFFFFFFFFU}) {
        EXPECT_FALSE(HasPeHeaders(Image(4096, headers)));
    }
}

TEST(PeHeaderTest, AllFourBytesOfTheOffsetAreUsed) {
    for (const std::uint32_t headers : {0x40U, 0x4000U, 0x400000U, 0x2000000U}) {
        EXPECT_TRUE(HasPeHeaders(Image(headers + 6, headers))) << headers;
        EXPECT_FALSE(HasPeHeaders(Image(headers + 5, headers))) << headers;
    }
}

TEST(PeHeaderTest, ShortFilesAndOtherSignaturesAreNoImages) {
    EXPECT_FALSE(HasPeHeaders({}));
    const std::vector<std::byte> image = Image(64, 4);
    EXPECT_FALSE(HasPeHeaders(std::span(image).first(63)));
    EXPECT_FALSE(HasPeHeaders(std::span(image).first(2)));
    std::vector<std::byte> other = Image(256, 64);
    other[1] = std::byte{'z'};
    EXPECT_FALSE(HasPeHeaders(other));
}

TEST(PeHeaderTest, TheMachineFollowsTheSignature) {
    std::vector<std::byte> image = Image(256, 64);
    EXPECT_EQ(MachineIn(image), 0);
    image[64] = std::byte{'P'};
    image[65] = std::byte{'E'};
    image[68] = std::byte{0x64};
    image[69] = std::byte{0x86};
    EXPECT_EQ(MachineIn(image), 0x8664);
    for (const std::size_t mark : {0U, 64U, 65U}) {
        std::vector<std::byte> other = image;
        other[mark] = std::byte{'x'};
        EXPECT_EQ(MachineIn(other), 0) << mark;
    }
}

TEST(PeHeaderTest, TheMachineOfEveryAcceptedFileCanBeRead) {
    std::mt19937 random(20240611);
    int passed = 0;
    for (int round = 0; round < 20000; ++round) {
        std::vector<std::byte> bytes =
            Image(64 + random() % 200, static_cast<std::uint32_t>(random() % 300));
        if (random() % 8 == 0) bytes[60 + random() % 4] = std::byte(random() & 0xFF);
        if (!HasPeHeaders(bytes)) continue;
        ++passed;
        std::size_t headers = 0;
        for (std::size_t i = 4; i-- > 0;) {
            headers = headers << 8 | std::to_integer<std::size_t>(bytes[60 + i]);
        }
        // The address sanitizer detects a read beyond the file.
        EXPECT_EQ(bytes[headers + 5], bytes.data()[headers + 5]);
        EXPECT_LE(headers + 6, bytes.size());
    }
    EXPECT_GT(passed, 1000);
}

}  // namespace
}  // namespace tarn
