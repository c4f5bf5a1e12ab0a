#include "settings/known_names.h"

#include <gtest/gtest.h>

#include <string>

namespace tarn {
namespace {

using namespace std::string_view_literals;

TEST(PossiblePlacesTest, CountsUpToTwo) {
    EXPECT_EQ(PossiblePlaces(L"One\0Two\0"sv, L"Three"), 0);
    EXPECT_EQ(PossiblePlaces(L"One\0Two\0"sv, L"Two"), 1);
    EXPECT_EQ(PossiblePlaces(L"One\0One\0"sv, L"One"), 2);
    EXPECT_EQ(PossiblePlaces(L"One\0One\0One\0"sv, L"One"), 2);
}

TEST(PossiblePlacesTest, LetterCaseDoesNotCountAndWhatStandsAroundDoesNotEither) {
    EXPECT_EQ(PossiblePlaces(L"JRE PATH\0"sv, L"JRE Path"), 1);
    EXPECT_EQ(PossiblePlaces(L" One \0"sv, L"One"), 1);
    EXPECT_EQ(PossiblePlaces(L"\"One\"\0"sv, L"One"), 1);
    EXPECT_EQ(PossiblePlaces(L"One\0One+\0"sv, L"One"), 2);
    EXPECT_EQ(PossiblePlaces(L"OneOne\0"sv, L"One"), 2);
}

TEST(PossiblePlacesTest, ANameDoesNotGoFromOneToTheNext) {
    EXPECT_EQ(PossiblePlaces(L"One\0Two\0"sv, L"OneTwo"), 0);
    EXPECT_EQ(PossiblePlaces(L"On"sv, L"One"), 0);
}

TEST(PossiblePlacesTest, WhatIsNotCertainMayBeAnything) {
    EXPECT_EQ(PossiblePlaces(L"", L"One"), 2);
    EXPECT_EQ(PossiblePlaces(L"\u00D6ne\0"sv, L"One"), 2);
    EXPECT_EQ(PossiblePlaces(L"Two\u212A\0"sv, L"One"), 2);
    EXPECT_EQ(PossiblePlaces(L"O\x01ne\0"sv, L"One"), 2);
    EXPECT_EQ(PossiblePlaces(L"Two\tThree\0"sv, L"One"), 2);
    EXPECT_EQ(PossiblePlaces(L"One\0One\0\u00D6ne\0"sv, L"One"), 2);
}

}  // namespace
}  // namespace tarn
