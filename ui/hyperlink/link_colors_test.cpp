#include "ui/hyperlink/link_colors.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tarn {
namespace {

constexpr std::uint32_t kText = 1;
constexpr std::uint32_t kExpandableText = 2;
constexpr std::uint32_t kBinary = 3;

std::vector<std::uint8_t> Utf16(const std::string& ascii) {
    std::vector<std::uint8_t> bytes;
    for (const char c : ascii) {
        bytes.push_back(static_cast<std::uint8_t>(c));
        bytes.push_back(0);
    }
    return bytes;
}

TEST(LinkColorTest, ThreeNumbersArePackedWithRedLowest) {
    EXPECT_EQ(ParseLinkColor(L"0,0,255"), 0xFF0000u);
    EXPECT_EQ(ParseLinkColor(L"255,0,0"), 0x0000FFu);
    EXPECT_EQ(ParseLinkColor(L"1,2,3"), 0x030201u);
    EXPECT_EQ(ParseLinkColor(L" 1, 2,\t3"), 0x030201u);
    EXPECT_EQ(ParseLinkColor(L"+1,002,3 and more"), 0x030201u);
}

TEST(LinkColorTest, AMissingCommaOrThirdNumberMakesItInvalid) {
    EXPECT_EQ(ParseLinkColor(L""), std::nullopt);
    EXPECT_EQ(ParseLinkColor(L"255"), std::nullopt);
    EXPECT_EQ(ParseLinkColor(L"255,0"), std::nullopt);
    EXPECT_EQ(ParseLinkColor(L"255,0,"), std::nullopt);
    EXPECT_EQ(ParseLinkColor(L"255;0;0"), std::nullopt);
    EXPECT_EQ(ParseLinkColor(L",,"), std::nullopt);
}

TEST(LinkColorTest, APieceWithoutDigitsIsZero) {
    EXPECT_EQ(ParseLinkColor(L",,1"), 0x010000u);
    EXPECT_EQ(ParseLinkColor(L"x,2,3"), 0x030200u);
    EXPECT_EQ(ParseLinkColor(L"1,2,x"), 0x000201u);
    EXPECT_EQ(ParseLinkColor(L"1,2, "), 0x000201u);
    EXPECT_EQ(ParseLinkColor(L"0x10,2,3"), 0x030200u);
}

TEST(LinkColorTest, AThirdCommaEndsTheThirdNumber) {
    EXPECT_EQ(ParseLinkColor(L"1,2,3,4"), 0x030201u);
}

TEST(LinkColorTest, OnlyBlueIsMaskedToEightBits) {
    EXPECT_EQ(ParseLinkColor(L"0,0,256"), 0x000000u);
    EXPECT_EQ(ParseLinkColor(L"0,0,257"), 0x010000u);
    EXPECT_EQ(ParseLinkColor(L"256,0,0"), 0x000100u);
    EXPECT_EQ(ParseLinkColor(L"0,256,0"), 0x010000u);
    EXPECT_EQ(ParseLinkColor(L"65536,0,1"), 0x010000u);
    EXPECT_EQ(ParseLinkColor(L"0,0,-1"), 0xFF0000u);
    EXPECT_EQ(ParseLinkColor(L"-1,0,0"), 0xFFFFFFFFu);
    EXPECT_EQ(ParseLinkColor(L"0,-1,0"), 0xFFFFFF00u);
}

TEST(LinkColorTest, NumbersOutOfRangeBecomeTheLimit) {
    EXPECT_EQ(ParseLinkColor(L"99999999999999999999,0,0"), 0x7FFFFFFFu);
    EXPECT_EQ(ParseLinkColor(L"-99999999999999999999,0,0"), 0x80000000u);
    EXPECT_EQ(ParseLinkColor(L"2147483648,0,0"), 0x7FFFFFFFu);
    EXPECT_EQ(ParseLinkColor(L"-2147483648,0,0"), 0x80000000u);
}

TEST(LinkColorTest, ARegistryTextIsRead) {
    EXPECT_EQ(LinkColorOfValue(kText, Utf16(std::string("255,0,0\0", 8))), 0x0000FFu);
    EXPECT_EQ(LinkColorOfValue(kExpandableText, Utf16(std::string("0,255,0\0", 8))), 0x00FF00u);
    // The text ends at the terminator.
    EXPECT_EQ(LinkColorOfValue(kText, Utf16(std::string("1,2,3\0,9\0", 9))), 0x030201u);
}

TEST(LinkColorTest, ACommaAfterATerminatorDoesNotCompleteTheText) {
    EXPECT_EQ(LinkColorOfValue(kText, Utf16(std::string("1,2\0,3\0", 7))), std::nullopt);
}

TEST(LinkColorTest, BothBytesOfTheTerminatorAreZero) {
    for (const std::size_t byte : {std::size_t{1}, std::size_t{2}}) {
        std::vector<std::uint8_t> data = Utf16(std::string("1,2,3\0", 6));
        data[data.size() - byte] = '4';
        EXPECT_EQ(LinkColorOfValue(kText, data), std::nullopt) << byte;
    }
}

TEST(LinkColorTest, BothBytesOfACharacterCount) {
    // U+0131, whose low byte is that of "1".
    std::vector<std::uint8_t> data = Utf16(std::string("1,2,3\0", 6));
    data[1] = 1;
    EXPECT_EQ(LinkColorOfValue(kText, data), 0x030200u);
}

TEST(LinkColorTest, ARegistryValueOfAnotherFormIsRejected) {
    EXPECT_EQ(LinkColorOfValue(kBinary, Utf16(std::string("255,0,0\0", 8))), std::nullopt);
    EXPECT_EQ(LinkColorOfValue(0, Utf16(std::string("255,0,0\0", 8))), std::nullopt);
    EXPECT_EQ(LinkColorOfValue(kText, Utf16("255,0,0")), std::nullopt);
    EXPECT_EQ(LinkColorOfValue(kText, {}), std::nullopt);
    EXPECT_EQ(LinkColorOfValue(kText, Utf16(std::string("\0", 1))), std::nullopt);
    std::vector<std::uint8_t> odd = Utf16(std::string("255,0,0\0", 8));
    odd.push_back(0);
    EXPECT_EQ(LinkColorOfValue(kText, odd), std::nullopt);
    const std::vector<std::uint8_t> one{0};
    EXPECT_EQ(LinkColorOfValue(kText, one), std::nullopt);
}

}  // namespace
}  // namespace tarn
