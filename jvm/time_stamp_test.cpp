#include "jvm/time_stamp.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace tarn {
namespace {

void ExpectParts(std::wstring_view name, std::wstring_view before, std::wstring_view picture,
                 std::wstring_view after) {
    const auto parts = SplitTimeStamp(name);
    ASSERT_TRUE(parts.has_value());
    EXPECT_EQ(parts->before, before);
    EXPECT_EQ(parts->picture, picture);
    EXPECT_EQ(parts->after, after);
}

TEST(TimeStamp, NameWithoutPercentHasNoPicture) {
    EXPECT_FALSE(SplitTimeStamp(L"logs\\out.txt").has_value());
    EXPECT_FALSE(SplitTimeStamp(L"").has_value());
}

TEST(TimeStamp, PictureRunsFromTheFirstToTheLastPercent) {
    ExpectParts(L"logs\\out_%yyyy-MM-dd_HH-mm-ss%.txt", L"logs\\out_", L"yyyy-MM-dd_HH-mm-ss",
                L".txt");
    ExpectParts(L"%HHmm%", L"", L"HHmm", L"");
}

TEST(TimeStamp, PercentsInsideThePictureBelongToIt) {
    ExpectParts(L"a%yyyy%-%MM%b", L"a", L"yyyy%-%MM", L"b");
    ExpectParts(L"%%%", L"", L"%", L"");
}

TEST(TimeStamp, SinglePercentIsAnEmptyPicture) {
    ExpectParts(L"100%.txt", L"100", L"", L".txt");
    ExpectParts(L"%", L"", L"", L"");
}

TEST(TimeStamp, TwoPercentsSideBySideAreAnEmptyPicture) {
    ExpectParts(L"a%%b", L"a", L"", L"b");
}

TEST(TimeStamp, EveryLBecomesTheMillisecondsWithoutLeadingZeros) {
    EXPECT_EQ(WithMilliseconds(L"ss.L", 7), L"ss.7");
    EXPECT_EQ(WithMilliseconds(L"L-L", 42), L"42-42");
    EXPECT_EQ(WithMilliseconds(L"LLL", 999), L"999999999");
    EXPECT_EQ(WithMilliseconds(L"L", 0), L"0");
}

TEST(TimeStamp, OnlyTheCapitalLMeansMilliseconds) {
    EXPECT_EQ(WithMilliseconds(L"l HH'clock'", 5), L"l HH'clock'");
    EXPECT_EQ(WithMilliseconds(L"", 5), L"");
}

TEST(TimeStamp, PartsOfAPictureAreItsFieldsAndTheRest) {
    const PictureParts parts = SplitPicture(L"HH:mm:ss tt", L"hHmst");
    EXPECT_EQ(parts.copied, 3U);
    EXPECT_THAT(parts.fields, testing::ElementsAre(L"HH", L"mm", L"ss", L"tt"));
}

TEST(TimeStamp, DifferentLettersSideBySideAreDifferentFields) {
    EXPECT_THAT(SplitPicture(L"hHHh", L"hHmst").fields, testing::ElementsAre(L"h", L"HH", L"h"));
}

TEST(TimeStamp, QuotedTextIsCopiedWithoutItsQuotes) {
    const PictureParts parts = SplitPicture(L"'at HH'HH'o''clock'", L"hHmst");
    EXPECT_EQ(parts.copied, 12U);
    EXPECT_THAT(parts.fields, testing::ElementsAre(L"HH"));
}

TEST(TimeStamp, QuoteWithoutAnEndQuotesTheRest) {
    EXPECT_EQ(SplitPicture(L"'HHmm", L"hHmst").copied, 4U);
    EXPECT_EQ(SplitPicture(L"'", L"hHmst").copied, 0U);
    EXPECT_EQ(SplitPicture(L"", L"hHmst").copied, 0U);
}

TEST(TimeStamp, HugePictureIsWalkedOnce) {
    const std::wstring picture(32'000, L'L');
    EXPECT_EQ(WithMilliseconds(picture, 123).size(), 96'000U);
}

}  // namespace
}  // namespace tarn
