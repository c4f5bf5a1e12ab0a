#include "base/text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>

namespace tarn {
namespace {

using Pieces = std::vector<std::wstring>;

TEST(TextTest, IgnoresTheCaseOfAsciiLettersOnly) {
    EXPECT_TRUE(EqualsIgnoringCase(L"Yes", L"yES"));
    EXPECT_TRUE(EqualsIgnoringCase(L"", L""));
    EXPECT_FALSE(EqualsIgnoringCase(L"Yes", L"Yes "));
    EXPECT_FALSE(EqualsIgnoringCase(L"Ye", L"Yes"));
    // The Kelvin sign and the dotless i do not match in any locale.
    EXPECT_FALSE(EqualsIgnoringCase(L"jroc\u212Ait", L"jrockit"));
    EXPECT_FALSE(EqualsIgnoringCase(L"\u0131bm", L"ibm"));
    EXPECT_FALSE(EqualsIgnoringCase(L"\u00C9", L"\u00E9"));
    // The neighbours of the letters.
    EXPECT_FALSE(EqualsIgnoringCase(L"[", L"{"));
    EXPECT_FALSE(EqualsIgnoringCase(L"@", L"`"));
}

TEST(TextTest, TrimsWhiteSpaceOfEveryKindAtBothEnds) {
    EXPECT_EQ(TrimWhiteSpace(L" \t\r\n\v\fa b\t "), L"a b");
    EXPECT_EQ(TrimWhiteSpace(L" \t "), L"");
    EXPECT_EQ(TrimWhiteSpace(L""), L"");
}

TEST(TextTest, ReplacesEachOccurrence) {
    EXPECT_EQ(ReplaceAll(L"com.example.Main", L'.', L'/'), L"com/example/Main");
    EXPECT_EQ(ReplaceAll(L"", L'.', L'/'), L"");
}

TEST(TextTest, CutsAtTheLastMarkIfAny) {
    EXPECT_EQ(CutAtLast(L"C:\\jre\\bin", L'\\'), L"C:\\jre");
    EXPECT_EQ(CutAtLast(L"\\bin", L'\\'), L"");
    EXPECT_EQ(CutAtLast(L"bin", L'\\'), L"bin");
}

TEST(TextTest, AddsAnEndingOnlyWhenItIsMissing) {
    EXPECT_EQ(EnsureTrailing(L"C:\\jre", L'\\'), L"C:\\jre\\");
    EXPECT_EQ(EnsureTrailing(L"C:\\jre\\", L'\\'), L"C:\\jre\\");
    EXPECT_EQ(EnsureTrailing(L"", L'\\'), L"\\");
}

TEST(TextTest, SplitsAtEachSeparatorKeepingEmptyPieces) {
    EXPECT_EQ(Split(L"", L';'), Pieces{});
    EXPECT_EQ(Split(L"1.8", L';'), Pieces{L"1.8"});
    EXPECT_EQ(Split(L" 1.7 ;;1.8;", L';'), (Pieces{L" 1.7 ", L"", L"1.8", L""}));
}

TEST(DecimalTest, WritesSignedDecimals) {
    EXPECT_EQ(DecimalText(0), L"0");
    EXPECT_EQ(DecimalText(7), L"7");
    EXPECT_EQ(DecimalText(-10), L"-10");
    EXPECT_EQ(DecimalText(std::numeric_limits<std::int32_t>::max()), L"2147483647");
    EXPECT_EQ(DecimalText(std::numeric_limits<std::int32_t>::min()), L"-2147483648");
}

TEST(DecimalTest, AgreesWithTheStandardLibrary) {
    std::mt19937 random(1);
    for (int i = 0; i < 10000; ++i) {
        const auto number = static_cast<std::int32_t>(random() >> (random() % 32));
        EXPECT_EQ(DecimalText(number), std::to_wstring(number));
    }
}

TEST(FormatTextTest, FillsTextsAndNumbersInOrder) {
    EXPECT_EQ(FormatText(L"Windows exception: %s (errno = %d).\n", {L"no path", 126}),
              L"Windows exception: no path (errno = 126).\n");
}

TEST(FormatTextTest, NumbersAreSigned) {
    EXPECT_EQ(FormatText(L"%d %d", {-1, std::numeric_limits<std::int32_t>::min()}),
              L"-1 -2147483648");
}

TEST(FormatTextTest, PercentSignsInValuesAreNotInterpreted) {
    EXPECT_EQ(FormatText(L"[%s] %s", {L"%s%d%n", L"x"}), L"[%s%d%n] x");
}

TEST(FormatTextTest, MissingValuesAreEmptyAndSurplusOnesAreIgnored) {
    EXPECT_EQ(FormatText(L"%s-%s-%d", {L"a"}), L"a--");
    EXPECT_EQ(FormatText(L"plain", {L"a"}), L"plain");
}

TEST(FormatTextTest, OtherPercentSignsAreCopied) {
    EXPECT_EQ(FormatText(L"100%% %n %", {L"a"}), L"100% %n %");
}

TEST(FormatTextTest, LongTextsAreNotTruncated) {
    const std::wstring path(30000, L'p');
    EXPECT_EQ(FormatText(L"<%s>", {path}), L"<" + path + L">");
}

TEST(FormatTextTest, APercentSignAtTheEndDoesNotReadPastTheView) {
    EXPECT_EQ(FormatText(std::wstring_view(L"50%d").substr(0, 3), {7}), L"50%");
    EXPECT_EQ(FormatText(std::wstring_view(L"50%%").substr(0, 3), {}), L"50%");
}

TEST(FormatTextTest, MeasuresWithoutABuffer) {
    EXPECT_EQ(FormatInto(nullptr, L"%s (%d)", {L"path", -12}), 10U);
}

// Truncates the text to the buffer size minus `spare`, as the profile functions do.
struct CuttingReader {
    std::wstring text;
    std::size_t spare;
    std::vector<std::size_t>& sizes;

    std::size_t operator()(wchar_t* buffer, std::size_t size) const {
        sizes.push_back(size);
        const std::size_t length = std::min(text.size(), size - spare);
        std::copy_n(text.begin(), length, buffer);
        return length;
    }
};

std::vector<std::size_t> SizesTried(std::size_t length, std::size_t spare) {
    std::vector<std::size_t> sizes;
    const std::wstring text(length, L'x');
    EXPECT_EQ(ReadGrowing(spare, CuttingReader{text, spare, sizes}), text);
    return sizes;
}

using Sizes = std::vector<std::size_t>;

TEST(GrowingBufferTest, AShortTextIsReadOnce) {
    EXPECT_EQ(SizesTried(254, 1), Sizes({256}));
}

TEST(GrowingBufferTest, ATextThatFillsTheBufferIsReadAgain) {
    EXPECT_EQ(SizesTried(255, 1), Sizes({256, 512}));
    EXPECT_EQ(SizesTried(254, 2), Sizes({256, 512}));
}

TEST(GrowingBufferTest, LongTextsAreReadCompletely) {
    EXPECT_EQ(SizesTried(300, 1), Sizes({256, 512}));
    EXPECT_EQ(SizesTried(511, 1), Sizes({256, 512, 1024}));
    EXPECT_EQ(SizesTried(30000, 1).back(), 32768u);
}

TEST(GrowingBufferTest, AnEmptyTextIsEmpty) {
    EXPECT_EQ(SizesTried(0, 1), Sizes({256}));
}

}  // namespace
}  // namespace tarn
