#include "jvm/time_stamp.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

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

TEST(TimeStamp, PercentSignsInsideThePictureArePartOfIt) {
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

/// The fields of a picture, and the number of characters copied between them.
std::pair<std::vector<std::wstring>, std::size_t> TakeFields(std::wstring_view picture) {
    std::vector<std::wstring> fields;
    std::size_t copied = 0;
    for (;;) {
        const std::wstring_view field = ConsumeField(picture, L"hHmst", copied);
        if (field.empty()) break;
        fields.emplace_back(field);
    }
    EXPECT_TRUE(picture.empty());
    return {fields, copied};
}

TEST(TimeStamp, PictureConsistsOfFieldsAndTextBetweenThem) {
    const auto [fields, copied] = TakeFields(L"HH:mm:ss tt");
    EXPECT_THAT(fields, testing::ElementsAre(L"HH", L"mm", L"ss", L"tt"));
    EXPECT_EQ(copied, 3U);
}

TEST(TimeStamp, DifferentLettersSideBySideAreDifferentFields) {
    EXPECT_THAT(TakeFields(L"hHHh").first, testing::ElementsAre(L"h", L"HH", L"h"));
}

TEST(TimeStamp, QuotedTextIsCopiedWithoutItsQuotes) {
    const auto [fields, copied] = TakeFields(L"'at HH'HH'o''clock'");
    EXPECT_THAT(fields, testing::ElementsAre(L"HH"));
    EXPECT_EQ(copied, 12U);
}

TEST(TimeStamp, QuoteWithoutAnEndQuotesTheRest) {
    EXPECT_EQ(TakeFields(L"'HHmm").second, 4U);
    EXPECT_EQ(TakeFields(L"'").second, 0U);
    EXPECT_EQ(TakeFields(L"").second, 0U);
}

TEST(TimeStamp, DoubledQuoteCountsAlsoAtTheEndOfThePicture) {
    EXPECT_EQ(TakeFields(L"'a''").second, 2U);
    // The second quote is not part of the picture.
    EXPECT_EQ(TakeFields(std::wstring_view(L"'a''").substr(0, 3)).second, 1U);
}

TEST(TimeStamp, HugePictureIsScannedOnce) {
    const std::wstring picture(32'000, L'L');
    EXPECT_EQ(WithMilliseconds(picture, 123).size(), 96'000U);
}

}  // namespace
}  // namespace tarn
