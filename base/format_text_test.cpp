#include "base/format_text.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace tarn {
namespace {

TEST(FormatTextTest, FillsTextsAndNumbersInOrder) {
    EXPECT_EQ(FormatText(L"Windows exception: %s (errno = %d).\n", {L"no path", 126}),
              L"Windows exception: no path (errno = 126).\n");
}

TEST(FormatTextTest, NumbersAreSigned) {
    EXPECT_EQ(FormatText(L"%d %d", {-1, std::numeric_limits<std::int32_t>::min()}),
              L"-1 -2147483648");
}

TEST(FormatTextTest, PercentSignsInValuesAreNotLookedAt) {
    EXPECT_EQ(FormatText(L"[%s] %s", {L"%s%d%n", L"x"}), L"[%s%d%n] x");
}

TEST(FormatTextTest, MissingValuesAreEmptyAndSpareOnesAreDropped) {
    EXPECT_EQ(FormatText(L"%s-%s-%d", {L"a"}), L"a--");
    EXPECT_EQ(FormatText(L"plain", {L"a"}), L"plain");
}

TEST(FormatTextTest, OtherPercentSignsStandForThemselves) {
    EXPECT_EQ(FormatText(L"100%% %n %", {L"a"}), L"100% %n %");
}

TEST(FormatTextTest, ThePercentSignAtTheEndIsNotCompletedByWhatFollowsTheView) {
    EXPECT_EQ(FormatText(std::wstring_view(L"50%d").substr(0, 3), {7}), L"50%");
    EXPECT_EQ(FormatText(std::wstring_view(L"50%%").substr(0, 3), {}), L"50%");
}

TEST(FormatTextTest, LongTextsAreNotCut) {
    const std::wstring path(30000, L'p');
    EXPECT_EQ(FormatText(L"<%s>", {path}), L"<" + path + L">");
}

TEST(FormatTextTest, MeasuresWithoutABuffer) {
    EXPECT_EQ(FormatInto(nullptr, L"%s (%d)", {L"path", -12}), 10U);
}

}  // namespace
}  // namespace tarn
