#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <vector>

#include "tools/explain/runtime_facts.h"

namespace tarn::tools {
namespace {

TEST(JavaVersionTest, StandsInALineOfItsOwn) {
    EXPECT_EQ(JavaVersionIn("IMPLEMENTOR=\"x\"\r\nJAVA_VERSION=\"17.0.9\"\r\nOS=\"y\"\r\n"),
              "17.0.9");
    EXPECT_EQ(JavaVersionIn("JAVA_VERSION=1.8.0_231"), "1.8.0_231");
    EXPECT_EQ(JavaVersionIn("JAVA_VERSION_DATE=\"2023\"\nJAVA_VERSION=\"21\"\n"), "21");
}

TEST(JavaVersionTest, IsEmptyWhereThereIsNone) {
    EXPECT_EQ(JavaVersionIn(""), "");
    EXPECT_EQ(JavaVersionIn("\n\r\nNOT_JAVA_VERSION=1\n"), "");
    EXPECT_EQ(JavaVersionIn("JAVA_VERSION="), "");
}

std::vector<std::byte> Resource(const std::vector<std::uint32_t>& words) {
    std::vector<std::byte> bytes(words.size() * sizeof(std::uint32_t));
    std::memcpy(bytes.data(), words.data(), bytes.size());
    return bytes;
}

TEST(FileVersionTest, FollowsTheMarkOfTheFixedPart) {
    EXPECT_EQ(FileVersionIn(Resource({1, 2, 0xFEEF04BD, 0x10000, 17U << 16, (9U << 16) | 12, 5})),
              "17.0.9.12");
}

TEST(FileVersionTest, IsEmptyWithoutTheMarkOrWhatFollows) {
    EXPECT_EQ(FileVersionIn({}), "");
    EXPECT_EQ(FileVersionIn(Resource({1, 2, 3, 4, 5})), "");
    EXPECT_EQ(FileVersionIn(Resource({0xFEEF04BD, 0x10000, 17U << 16})), "");
}

}  // namespace
}  // namespace tarn::tools
