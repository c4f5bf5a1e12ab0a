#include "runtime/runtime_version.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace tarn {
namespace {

using Parts = std::array<std::int32_t, 4>;

constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();

RuntimeVersion Version(std::int32_t a, std::int32_t b, std::int32_t c, std::int32_t d) {
    return {{a, b, c, d}, 4};
}

/// Parses into a record without zeros, so that a part that is not written is detected.
RuntimeVersion Parsed(std::wstring_view text, std::int32_t fill = 0, bool expected = true) {
    RuntimeVersion version{{9, 9, 9, 9}, 9};
    EXPECT_EQ(ParseVersion(text, fill, version), expected) << std::string(text.begin(), text.end());
    return version;
}

void ExpectFails(std::wstring_view text) {
    for (const std::int32_t fill : {0, kOpenPart}) {
        const RuntimeVersion version = Parsed(text, fill, false);
        EXPECT_EQ(version.parts, (Parts{0, 0, 0, 0}));
        EXPECT_EQ(version.count, 0);
    }
}

struct ParseCase {
    const wchar_t* text;
    std::int32_t fill;
    Parts parts;
    std::int32_t count;
};

TEST(ParseVersionTest, ReadsEveryFormOfAVersion) {
    const ParseCase cases[] = {
        {L"1.8.0_231", 0, {1, 8, 0, 231}, 4},
        {L"11.0.2", 0, {11, 0, 2, 0}, 3},
        {L"17", 0, {17, 0, 0, 0}, 1},
        {L"jdk-17+35", 0, {17, 35, 0, 0}, 2},
        {L"1.8.0_231-b11", 0, {1, 8, 0, 231}, 5},
        {L"1.8.0_231-b11-c12", 0, {1, 8, 0, 231}, 5},
        {L"1.8", kOpenPart, {1, 8, kOpenPart, kOpenPart}, 2},
        {L"1.8.0_231", kOpenPart, {1, 8, 0, 231}, 4},
        {L" \t21 x 3", 0, {21, 3, 0, 0}, 2},
        {L"007.010", 0, {7, 10, 0, 0}, 2},
        {L"-1.-2", 0, {1, 2, 0, 0}, 2},
        {L"0", 0, {0, 0, 0, 0}, 1},
        {L"0", kOpenPart, {0, kOpenPart, kOpenPart, kOpenPart}, 1},
        {L"1.", 5, {1, 5, 5, 5}, 1},
    };
    for (const ParseCase& c : cases) {
        const RuntimeVersion version = Parsed(c.text, c.fill);
        const std::wstring text = c.text;
        EXPECT_EQ(version.parts, c.parts) << std::string(text.begin(), text.end());
        EXPECT_EQ(version.count, c.count) << std::string(text.begin(), text.end());
    }
}

TEST(ParseVersionTest, FailsWithoutADigit) {
    ExpectFails(L"");
    ExpectFails(L"abc");
    ExpectFails(L"._-+ any");
    // Only ASCII digits count, not full-width and Arabic ones.
    ExpectFails(L"\uFF11\uFF18 \u0661\u0668");
}

TEST(ParseVersionTest, OtherDigitsAreSeparators) {
    EXPECT_EQ(Parsed(L"1\u06618").parts, (Parts{1, 8, 0, 0}));
}

TEST(ParseVersionTest, ATooLargeNumberFailsTheWholeText) {
    ExpectFails(L"2147483651");
    ExpectFails(L"2147483650");
    ExpectFails(L"1.8.0.2147483650");
    ExpectFails(L"9999999999");
}

TEST(ParseVersionTest, TheTenthDigitMayWrap) {
    EXPECT_EQ(Parsed(L"2147483647").parts, (Parts{kMax, 0, 0, 0}));
    EXPECT_EQ(Parsed(L"2147483648").parts, (Parts{kMin, 0, 0, 0}));
    EXPECT_EQ(Parsed(L"2147483649.3").parts, (Parts{kMin + 1, 3, 0, 0}));
}

TEST(ParseVersionTest, AWrappedNumberAcceptsMoreDigits) {
    // -2147483648 * 10 is 0 in 32 bits; the eleventh digit is added to it.
    EXPECT_EQ(Parsed(L"21474836487").parts, (Parts{7, 0, 0, 0}));
    // (-2147483647 * 10) mod 2^32 is 10.
    EXPECT_EQ(Parsed(L"21474836495").parts, (Parts{15, 0, 0, 0}));
}

TEST(ParseVersionTest, IgnoresLeadingZeros) {
    EXPECT_EQ(Parsed(std::wstring(1000, L'0') + L"17").parts, (Parts{17, 0, 0, 0}));
}

TEST(ParseVersionTest, DoesNotReadTheFifthGroup) {
    const RuntimeVersion version = Parsed(L"1.2.3.4.99999999999");
    EXPECT_EQ(version.parts, (Parts{1, 2, 3, 4}));
    EXPECT_EQ(version.count, 5);
}

TEST(ParseVersionTest, AcceptsTextsOfAnyLength) {
    ExpectFails(std::wstring(10000, L'x'));
    ExpectFails(std::wstring(10000, L'9'));
    EXPECT_EQ(Parsed(std::wstring(10000, L'x') + L"8").parts, (Parts{8, 0, 0, 0}));
    std::wstring many;
    while (many.size() < 10000) many += L"1.";
    EXPECT_EQ(Parsed(many).parts, (Parts{1, 1, 1, 1}));
    EXPECT_EQ(Parsed(many).count, 5);
}

TEST(ParseVersionTest, DoesNotReadBeyondTheView) {
    const std::wstring text = L"1.89";
    EXPECT_EQ(Parsed(std::wstring_view(text).substr(0, 3)).parts, (Parts{1, 8, 0, 0}));
}

TEST(FormatVersionTest, WritesUpToTheLastSignificantPart) {
    EXPECT_EQ(FormatVersion(Version(1, 8, 0, 231)), L"1.8.0.231");
    EXPECT_EQ(FormatVersion(Version(11, 0, 0, 0)), L"11.0");
    EXPECT_EQ(FormatVersion(Version(1, 8, 0, 0)), L"1.8");
    EXPECT_EQ(FormatVersion(Version(1, 8, kOpenPart, kOpenPart)), L"1.8");
    EXPECT_EQ(FormatVersion(Version(1, 0, 0, 0)), L"1.0");
    EXPECT_EQ(FormatVersion(Version(11, kOpenPart, kOpenPart, kOpenPart)), L"11.65535");
    EXPECT_EQ(FormatVersion(Version(0, 0, 0, 1)), L"0.0.0.1");
    EXPECT_EQ(FormatVersion(Version(1, kOpenPart, 3, 0)), L"1.65535.3");
    EXPECT_EQ(FormatVersion(Version(kMin, -1, 0, 0)), L"-2147483648.-1");
}

TEST(FormatVersionTest, WritesABlankVersionAsFourZeros) {
    EXPECT_EQ(FormatVersion(Version(0, 0, 0, 0)), L"0.0.0.0");
    EXPECT_EQ(FormatVersion(Version(kOpenPart, kOpenPart, kOpenPart, kOpenPart)), L"0.0.0.0");
    EXPECT_EQ(FormatVersion(Version(0, kOpenPart, 0, kOpenPart)), L"0.0.0.0");
}

TEST(CompareVersionsTest, TheFirstDifferentPartDecides) {
    EXPECT_EQ(CompareVersions(Version(1, 8, 0, 231), Version(1, 8, 0, 231)), 0);
    EXPECT_EQ(CompareVersions(Version(1, 8, 0, 230), Version(1, 8, 0, 231)), -1);
    EXPECT_EQ(CompareVersions(Version(1, 9, 0, 0), Version(1, 8, 9, 9)), 1);
    EXPECT_EQ(CompareVersions(Version(9, 0, 0, 0), Version(11, 0, 0, 0)), -1);
    EXPECT_EQ(CompareVersions(Version(1, 0, 2, 0), Version(1, 0, 1, 9)), 1);
}

TEST(CompareVersionsTest, PartsAreSigned) {
    EXPECT_EQ(CompareVersions(Version(kMin, 0, 0, 0), Version(0, 0, 0, 0)), -1);
    EXPECT_EQ(CompareVersions(Version(kMax, 0, 0, 0), Version(kMin, 9, 9, 9)), 1);
}

TEST(CompareVersionsTest, TheCountIsNotCompared) {
    EXPECT_EQ(CompareVersions({{1, 8, 0, 0}, 2}, {{1, 8, 0, 0}, 5}), 0);
}

TEST(BoundsTest, OnlyTheExactWordAnyIsOpen) {
    EXPECT_EQ(MinimumBound(L"any").parts, (Parts{0, 0, 0, 0}));
    EXPECT_EQ(MinimumBound(L"any").count, 4);
    EXPECT_EQ(MaximumBound(L"any").parts, (Parts{kOpenPart, kOpenPart, kOpenPart, kOpenPart}));
    EXPECT_EQ(MaximumBound(L"any").count, 4);
    for (const wchar_t* text : {L"Any", L"ANY", L" any", L"any ", L"", L"none"}) {
        for (const RuntimeVersion& bound : {MinimumBound(text), MaximumBound(text)}) {
            EXPECT_EQ(bound.parts, (Parts{0, 0, 0, 0}));
            EXPECT_EQ(bound.count, 0);
        }
    }
}

TEST(BoundsTest, TheKindOfBoundFillsTheUnwrittenTail) {
    EXPECT_EQ(MinimumBound(L"1.8").parts, (Parts{1, 8, 0, 0}));
    EXPECT_EQ(MaximumBound(L"1.8").parts, (Parts{1, 8, kOpenPart, kOpenPart}));
    EXPECT_EQ(MaximumBound(L"any 17").parts, (Parts{17, kOpenPart, kOpenPart, kOpenPart}));
    EXPECT_EQ(MaximumBound(L"2147483651").parts, (Parts{0, 0, 0, 0}));
}

TEST(BoundsTest, AMaximumIncludesEveryUpdateOfItsVersion) {
    const RuntimeVersion maximum = MaximumBound(L"1.8");
    EXPECT_LE(CompareVersions(Version(1, 8, 0, 231), maximum), 0);
    EXPECT_GT(CompareVersions(Version(1, 9, 0, 0), maximum), 0);
    EXPECT_GT(CompareVersions(Version(9, 0, 0, 0), maximum), 0);
    EXPECT_GE(CompareVersions(Version(1, 8, 0, 0), MinimumBound(L"1.8")), 0);
}

TEST(BlankTest, OnlyAllZerosAndAllOpenAreBlank) {
    EXPECT_TRUE(IsBlank(Version(0, 0, 0, 0)));
    EXPECT_TRUE(IsBlank(Version(kOpenPart, kOpenPart, kOpenPart, kOpenPart)));
    EXPECT_FALSE(IsBlank(Version(0, 0, 0, kOpenPart)));
    EXPECT_FALSE(IsBlank(Version(0, 0, 0, 1)));
    EXPECT_FALSE(IsBlank(Version(7, 7, 7, 7)));
}

TEST(MatchesPreferredTest, TrailingZerosMatchAnything) {
    EXPECT_TRUE(MatchesPreferred(L"1.8", Version(1, 8, 0, 231)));
    EXPECT_TRUE(MatchesPreferred(L"1.8.0", Version(1, 8, 0, 231)));
    EXPECT_TRUE(MatchesPreferred(L"1.8.0", Version(1, 8, 5, 0)));
    EXPECT_TRUE(MatchesPreferred(L"1.0", Version(1, 7, 0, 80)));
    EXPECT_TRUE(MatchesPreferred(L"11", Version(11, 0, 2, 0)));
    EXPECT_TRUE(MatchesPreferred(L"11", Version(11, 0, 15, 0)));
    EXPECT_FALSE(MatchesPreferred(L"11", Version(1, 8, 0, 231)));
    EXPECT_FALSE(MatchesPreferred(L"1.8.0_231", Version(1, 8, 0, 232)));
    EXPECT_TRUE(MatchesPreferred(L"1.8.0_231", Version(1, 8, 0, 231)));
    EXPECT_FALSE(MatchesPreferred(L"1.8.1", Version(1, 8, 0, 231)));
    EXPECT_FALSE(MatchesPreferred(L"0.1", Version(1, 1, 0, 0)));
}

TEST(MatchesPreferredTest, ABlankTextMatchesEverything) {
    for (const wchar_t* text : {L"", L"latest", L"0", L"0.0.0.0", L"2147483651"}) {
        EXPECT_TRUE(MatchesPreferred(text, Version(17, 0, 1, 0)));
        EXPECT_TRUE(MatchesPreferred(text, Version(0, 0, 0, 0)));
    }
}

void ExpectPhrase(const wchar_t* minimum, const wchar_t* maximum, unsigned id, const wchar_t* first,
                  const wchar_t* second) {
    const VersionPhrase phrase = ChooseVersionPhrase(MinimumBound(minimum), MaximumBound(maximum));
    EXPECT_EQ(phrase.textId, id);
    EXPECT_EQ(phrase.first, first);
    EXPECT_EQ(phrase.second, second);
}

TEST(VersionPhraseTest, WithoutBoundsTheLatestIsRequested) {
    ExpectPhrase(L"any", L"any", 217, L"", L"");
    ExpectPhrase(L"", L"", 217, L"", L"");
    // Not the word "any", but a text without digits.
    ExpectPhrase(L"Any", L"Any", 217, L"", L"");
}

TEST(VersionPhraseTest, ASingleBoundIsStated) {
    ExpectPhrase(L"any", L"1.8", 218, L"1.8", L"");
    ExpectPhrase(L"", L"1.8.0_231", 218, L"1.8.0.231", L"");
    ExpectPhrase(L"11.0.2", L"any", 219, L"11.0.2", L"");
    ExpectPhrase(L"11", L"", 219, L"11.0", L"");
}

TEST(VersionPhraseTest, EqualBoundsStateOneVersion) {
    ExpectPhrase(L"1.8.0_231", L"1.8.0_231", 220, L"1.8.0.231", L"");
}

TEST(VersionPhraseTest, DifferentBoundsStateARange) {
    ExpectPhrase(L"1.6", L"1.8", 221, L"1.6", L"1.8");
    // The unwritten parts of the bounds differ, so equal texts are a range.
    ExpectPhrase(L"1.8", L"1.8", 221, L"1.8", L"1.8");
    ExpectPhrase(L"17", L"11", 221, L"17.0", L"11.65535");
}

}  // namespace
}  // namespace tarn
