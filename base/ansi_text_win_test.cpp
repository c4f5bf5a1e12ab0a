#include "base/ansi_text.h"

#include <gtest/gtest.h>

#include "base/windows.h"

namespace tarn {
namespace {

TEST(AnsiTextTest, AsciiIsTheSameInEveryCodePage) {
    EXPECT_EQ(ToThreadAnsi(L"-Xmx1g"), "-Xmx1g");
    EXPECT_EQ(FromThreadAnsi("-Xmx1g"), L"-Xmx1g");
}

TEST(AnsiTextTest, AnEmptyTextStaysEmpty) {
    EXPECT_EQ(ToThreadAnsi(L""), "");
    EXPECT_EQ(FromThreadAnsi(""), L"");
}

TEST(AnsiTextTest, ConvertsByTheThreadsOwnLocale) {
    const LCID before = GetThreadLocale();
    SetThreadLocale(MAKELCID(MAKELANGID(LANG_RUSSIAN, SUBLANG_DEFAULT), SORT_DEFAULT));
    EXPECT_EQ(ToThreadAnsi(L"\u0416"), "\xC6");
    EXPECT_EQ(FromThreadAnsi("\xC6"), L"\u0416");
    SetThreadLocale(MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT));
    EXPECT_EQ(ToThreadAnsi(L"\u00E9"), "\xE9");
    EXPECT_EQ(ToThreadAnsi(L"\u0416"), "?");
    SetThreadLocale(before);
}

TEST(AnsiTextTest, ASimilarCharacterIsUsedOnlyIfAllowed) {
    const LCID before = GetThreadLocale();
    SetThreadLocale(MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT));
    EXPECT_EQ(ToThreadAnsi(L"\u0101\u00E9"), "a\xE9");
    EXPECT_EQ(ToThreadAnsi(L"\u0101\u00E9", BestFit::No), "?\xE9");
    SetThreadLocale(before);
}

TEST(AnsiTextTest, LongTextsAreNotTruncated) {
    EXPECT_EQ(ToThreadAnsi(std::wstring(40000, L'x')), std::string(40000, 'x'));
}

}  // namespace
}  // namespace tarn
