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

SYSTEMTIME At(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    SYSTEMTIME time{};
    time.wYear = static_cast<WORD>(year);
    time.wMonth = static_cast<WORD>(month);
    time.wDay = static_cast<WORD>(day);
    time.wHour = static_cast<WORD>(hour);
    time.wMinute = static_cast<WORD>(minute);
    time.wSecond = static_cast<WORD>(second);
    return time;
}

constexpr wchar_t kSortable[] = L"%yyyy-MM-dd HH.mm.ss%";

TEST(ExpandTimeStamp, HourThatTheClocksSkipIsWrittenAsItIs) {
    // In Europe and in New York; the functions of Windows know no time zone.
    EXPECT_EQ(ExpandTimeStamp(kSortable, At(2026, 3, 29, 2, 30)), L"2026-03-29 02.30.00");
    EXPECT_EQ(ExpandTimeStamp(kSortable, At(2026, 3, 8, 2, 30)), L"2026-03-08 02.30.00");
    // Half an hour, at Lord Howe.
    EXPECT_EQ(ExpandTimeStamp(kSortable, At(2026, 10, 4, 2, 15)), L"2026-10-04 02.15.00");
}

TEST(ExpandTimeStamp, MinutesOfAMonthAreDistinctAndInOrder) {
    std::wstring last;
    for (int day = 1; day <= 31; ++day) {
        for (int minute = 0; minute < 24 * 60; ++minute) {
            const std::wstring text =
                ExpandTimeStamp(kSortable, At(2026, 10, day, minute / 60, minute % 60));
            ASSERT_LT(last, text);
            last = text;
        }
    }
    EXPECT_EQ(last, L"2026-10-31 23.59.00");
}

TEST(ExpandTimeStamp, EndsOfYearsAndLeapDaysAreDates) {
    EXPECT_EQ(ExpandTimeStamp(kSortable, At(2026, 12, 31, 23, 59, 59)), L"2026-12-31 23.59.59");
    EXPECT_EQ(ExpandTimeStamp(kSortable, At(2027, 1, 1)), L"2027-01-01 00.00.00");
    EXPECT_EQ(ExpandTimeStamp(kSortable, At(2028, 2, 29)), L"2028-02-29 00.00.00");
    EXPECT_EQ(ExpandTimeStamp(kSortable, At(2000, 2, 29)), L"2000-02-29 00.00.00");
}

TEST(ExpandTimeStamp, LimitsOfTheCalendarAreDates) {
    EXPECT_EQ(ExpandTimeStamp(kSortable, At(1601, 1, 1)), L"1601-01-01 00.00.00");
    EXPECT_EQ(ExpandTimeStamp(kSortable, At(9999, 12, 31, 23, 59, 59)), L"9999-12-31 23.59.59");
}

// The texts of a picture for the time and of one for the date are removed separately.
TEST(ExpandTimeStamp, DateThatDoesNotExistBecomesAnEmptyText) {
    for (const SYSTEMTIME& time :
         {At(2026, 4, 31), At(2026, 13, 1), At(2026, 0, 1), At(2026, 1, 0)}) {
        EXPECT_EQ(ExpandTimeStamp(L"a%yyyy-MM-dd%b", time), L"ab");
    }
}

TEST(ExpandTimeStamp, TimeThatDoesNotExistBecomesAnEmptyText) {
    for (const SYSTEMTIME& time :
         {At(2026, 1, 1, 24), At(2026, 1, 1, 23, 60), At(2026, 12, 31, 23, 59, 60)}) {
        EXPECT_EQ(ExpandTimeStamp(L"a%HH.mm.ss%b", time), L"ab");
    }
}

}  // namespace
}  // namespace tarn
