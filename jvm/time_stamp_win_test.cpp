#include "jvm/time_stamp.h"

#include <gtest/gtest.h>

#include <string>

#include "base/windows.h"

namespace tarn {
namespace {

constexpr SYSTEMTIME kTime{.wYear = 2026,
                           .wMonth = 3,
                           .wDayOfWeek = 1,
                           .wDay = 9,
                           .wHour = 17,
                           .wMinute = 4,
                           .wSecond = 5,
                           .wMilliseconds = 78};

TEST(ExpandTimeStamp, FillsTimeAndDatePictures) {
    EXPECT_EQ(ExpandTimeStamp(L"logs\\out_%yyyy-MM-dd_HH-mm-ss%.txt", kTime),
              L"logs\\out_2026-03-09_17-04-05.txt");
}

TEST(ExpandTimeStamp, ShortPicturesHaveNoLeadingZeros) {
    EXPECT_EQ(ExpandTimeStamp(L"%yy-M-d_H-m-s%", kTime), L"26-3-9_17-4-5");
    EXPECT_EQ(ExpandTimeStamp(L"%h_hh%", kTime), L"5_05");
}

TEST(ExpandTimeStamp, FillsMilliseconds) {
    EXPECT_EQ(ExpandTimeStamp(L"L%HHmmss.L%L", kTime), L"L170405.78L");
}

TEST(ExpandTimeStamp, NameWithoutPictureStays) {
    EXPECT_EQ(ExpandTimeStamp(L"yyyy HH L.txt", kTime), L"yyyy HH L.txt");
    EXPECT_EQ(ExpandTimeStamp(L"", kTime), L"");
}

TEST(ExpandTimeStamp, SinglePercentSignIsRemoved) {
    EXPECT_EQ(ExpandTimeStamp(L"out100%.txt", kTime), L"out100.txt");
    EXPECT_EQ(ExpandTimeStamp(L"%", kTime), L"");
}

TEST(ExpandTimeStamp, EmptyPictureBecomesAnEmptyText) {
    EXPECT_EQ(ExpandTimeStamp(L"a%%b", kTime), L"ab");
}

TEST(ExpandTimeStamp, TextOutsideAPictureIsCopied) {
    EXPECT_EQ(ExpandTimeStamp(L"%_-.+[1]%", kTime), L"_-.+[1]");
}

TEST(ExpandTimeStamp, PercentsInsideThePictureStay) {
    EXPECT_EQ(ExpandTimeStamp(L"%HH%-%mm%", kTime), L"17%-%04");
}

TEST(ExpandTimeStamp, TimeTextIsReadAgainAsADatePicture) {
    // The time pass removes the quotes, so the date pass formats the text.
    EXPECT_EQ(ExpandTimeStamp(L"%'yyyy'%", kTime), L"2026");
}

TEST(ExpandTimeStamp, QuotesProtectTimeLettersAndTripledQuotesDateLetters) {
    EXPECT_EQ(ExpandTimeStamp(L"out_%HH'h'mm%.txt", kTime), L"out_17h04.txt");
    EXPECT_EQ(ExpandTimeStamp(L"%yyyy 'at' HH%", kTime), L"2026 at 17");
    EXPECT_EQ(ExpandTimeStamp(L"%'''day''' d%", kTime), L"day 9");
    EXPECT_EQ(ExpandTimeStamp(L"%yyyy%-%HHmm%.txt", kTime), L"2026%-%1704.txt");
}

TEST(ExpandTimeStamp, PictureOfExactly259CharactersFits) {
    EXPECT_EQ(ExpandTimeStamp(L"a%" + std::wstring(259, L'_') + L"%b", kTime),
              L"a" + std::wstring(259, L'_') + L"b");
}

TEST(ExpandTimeStamp, PictureThatDoesNotFitBecomesAnEmptyText) {
    EXPECT_EQ(ExpandTimeStamp(L"a%" + std::wstring(260, L'_') + L"%b", kTime), L"ab");
    EXPECT_EQ(ExpandTimeStamp(L"a%" + std::wstring(32'000, L'L') + L"%b", kTime), L"ab");
}

TEST(ExpandTimeStamp, FieldsThatDoNotFitBecomeAnEmptyText) {
    std::wstring times;
    for (int i = 0; i < 130; ++i) times += L"HHmm";
    EXPECT_EQ(ExpandTimeStamp(L"a%" + times + L"%b", kTime), L"ab");
    std::wstring days;  // longer than the buffer once the names are inserted
    for (int i = 0; i < 51; ++i) days += L"dddd_";
    EXPECT_EQ(ExpandTimeStamp(L"a%" + days + L"%b", kTime), L"ab");
}

TEST(ExpandTimeStamp, LongPictureOfAShortTextIsFilled) {
    EXPECT_EQ(ExpandTimeStamp(L"%" + std::wstring(500, L'H') + L"%", kTime), L"17");
    EXPECT_EQ(ExpandTimeStamp(L"%" + std::wstring(250, L'y') + L"%", kTime), L"2026");
}

TEST(ExpandTimeStamp, InvalidTimeBecomesAnEmptyText) {
    SYSTEMTIME invalid = kTime;
    invalid.wHour = 25;
    EXPECT_EQ(ExpandTimeStamp(L"a%HH%b", invalid), L"ab");
}

}  // namespace
}  // namespace tarn
