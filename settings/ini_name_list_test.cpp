#include "settings/ini_name_list.h"

#include <gtest/gtest.h>

#include <string>

namespace tarn {
namespace {

using namespace std::string_view_literals;

TEST(IniNameListTest, CountsUpToTwo) {
    EXPECT_EQ(CountPossibleMatches(L"One\0Two\0"sv, L"Three"), 0);
    EXPECT_EQ(CountPossibleMatches(L"One\0Two\0"sv, L"Two"), 1);
    EXPECT_EQ(CountPossibleMatches(L"One\0One\0"sv, L"One"), 2);
    EXPECT_EQ(CountPossibleMatches(L"One\0One\0One\0"sv, L"One"), 2);
}

TEST(IniNameListTest, CaseAndSurroundingCharactersAreIgnored) {
    EXPECT_EQ(CountPossibleMatches(L"JRE PATH\0"sv, L"JRE Path"), 1);
    EXPECT_EQ(CountPossibleMatches(L" One \0"sv, L"One"), 1);
    EXPECT_EQ(CountPossibleMatches(L"\"One\"\0"sv, L"One"), 1);
    EXPECT_EQ(CountPossibleMatches(L"One\0One+\0"sv, L"One"), 2);
    EXPECT_EQ(CountPossibleMatches(L"OneOne\0"sv, L"One"), 2);
}

TEST(IniNameListTest, ANameDoesNotExtendIntoTheNextOne) {
    EXPECT_EQ(CountPossibleMatches(L"One\0Two\0"sv, L"OneTwo"), 0);
    EXPECT_EQ(CountPossibleMatches(L"On"sv, L"One"), 0);
}

TEST(IniNameListTest, UncertainListsMatchEverything) {
    EXPECT_EQ(CountPossibleMatches(L"", L"One"), 2);
    EXPECT_EQ(CountPossibleMatches(L"\u00D6ne\0"sv, L"One"), 2);
    EXPECT_EQ(CountPossibleMatches(L"Two\u212A\0"sv, L"One"), 2);
    EXPECT_EQ(CountPossibleMatches(L"O\x01ne\0"sv, L"One"), 2);
    EXPECT_EQ(CountPossibleMatches(L"Two\tThree\0"sv, L"One"), 2);
    EXPECT_EQ(CountPossibleMatches(L"One\0One\0\u00D6ne\0"sv, L"One"), 2);
}

}  // namespace
}  // namespace tarn
