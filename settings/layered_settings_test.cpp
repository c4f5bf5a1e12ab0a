#include "settings/layered_settings.h"

#include <gtest/gtest.h>

namespace tarn {
namespace {

using namespace std::string_view_literals;

TEST(AppendValueTest, ASpaceSeparatesTheValues) {
    EXPECT_EQ(AppendValue(L"-Xms1g", L"-Xmx1g"), L"-Xms1g -Xmx1g");
}

TEST(AppendValueTest, TheSpaceIsAddedWithoutAValueBelow) {
    EXPECT_EQ(AppendValue(L"", L"-Xmx1g"), L" -Xmx1g");
}

TEST(AppendValueTest, NoSpaceIsAddedBeforeAValueThatBeginsWithOne) {
    EXPECT_EQ(AppendValue(L"a", L" b"), L"a b");
    EXPECT_EQ(AppendValue(L"", L" b"), L" b");
}

TEST(AppendValueTest, AnEmptyValueChangesNothing) {
    EXPECT_EQ(AppendValue(L"a", L""), L"a");
    EXPECT_EQ(AppendValue(L"", L""), L"");
}

TEST(CountPossibleMatchesTest, CountsUpToTwo) {
    EXPECT_EQ(CountPossibleMatches(L"One\0Two\0"sv, L"Three"), 0);
    EXPECT_EQ(CountPossibleMatches(L"One\0Two\0"sv, L"Two"), 1);
    EXPECT_EQ(CountPossibleMatches(L"One\0One\0"sv, L"One"), 2);
    EXPECT_EQ(CountPossibleMatches(L"One\0One\0One\0"sv, L"One"), 2);
}

TEST(CountPossibleMatchesTest, CaseAndSurroundingCharactersAreIgnored) {
    EXPECT_EQ(CountPossibleMatches(L"JRE PATH\0"sv, L"JRE Path"), 1);
    EXPECT_EQ(CountPossibleMatches(L" One \0"sv, L"One"), 1);
    EXPECT_EQ(CountPossibleMatches(L"\"One\"\0"sv, L"One"), 1);
    EXPECT_EQ(CountPossibleMatches(L"One\0One+\0"sv, L"One"), 2);
    EXPECT_EQ(CountPossibleMatches(L"OneOne\0"sv, L"One"), 2);
}

TEST(CountPossibleMatchesTest, ANameDoesNotExtendIntoTheNextOne) {
    EXPECT_EQ(CountPossibleMatches(L"One\0Two\0"sv, L"OneTwo"), 0);
    EXPECT_EQ(CountPossibleMatches(L"On"sv, L"One"), 0);
}

TEST(CountPossibleMatchesTest, EveryPrintableCharacterIsCertain) {
    EXPECT_EQ(CountPossibleMatches(L" !~\0"sv, L"One"), 0);
}

TEST(CountPossibleMatchesTest, UncertainListsMatchEverything) {
    EXPECT_EQ(CountPossibleMatches(L"", L"One"), 2);
    EXPECT_EQ(CountPossibleMatches(L"\u00D6ne\0"sv, L"One"), 2);
    EXPECT_EQ(CountPossibleMatches(L"Two\u212A\0"sv, L"One"), 2);
    EXPECT_EQ(CountPossibleMatches(L"O\x01ne\0"sv, L"One"), 2);
    EXPECT_EQ(CountPossibleMatches(L"Two\tThree\0"sv, L"One"), 2);
    EXPECT_EQ(CountPossibleMatches(L"One\0One\0\u00D6ne\0"sv, L"One"), 2);
}

}  // namespace
}  // namespace tarn
