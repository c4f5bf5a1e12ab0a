#include "tools/check/spelling.h"

#include <gtest/gtest.h>

namespace tarn::tools {
namespace {

TEST(EditDistanceTest, CountsInsertionsDeletionsSubstitutionsAndTranspositions) {
    EXPECT_EQ(EditDistance(L"", L""), 0U);
    EXPECT_EQ(EditDistance(L"class", L"class"), 0U);
    EXPECT_EQ(EditDistance(L"clas", L"class"), 1U);
    EXPECT_EQ(EditDistance(L"classs", L"class"), 1U);
    EXPECT_EQ(EditDistance(L"clasz", L"class"), 1U);
    EXPECT_EQ(EditDistance(L"calss", L"class"), 1U);
    EXPECT_EQ(EditDistance(L"abc", L""), 3U);
}

TEST(EditDistanceTest, IsCaseInsensitive) {
    EXPECT_EQ(EditDistance(L"JVM TYPE", L"jvm type"), 0U);
}

TEST(ClosestWordTest, IsTheFirstWithTheSmallestDistance) {
    const std::vector<std::wstring> words = {L"Main Class", L"Class Path", L"Cmd"};
    EXPECT_EQ(ClosestWord(L"MainClass", words), L"Main Class");
    EXPECT_EQ(ClosestWord(L"Classpath", words), L"Class Path");
    EXPECT_EQ(ClosestWord(L"Cmdd", words), L"Cmd");
}

TEST(ClosestWordTest, IsEmptyWhenNoneIsClose) {
    EXPECT_EQ(ClosestWord(L"Colour", {L"Main Class", L"Cmd"}), L"");
    EXPECT_EQ(ClosestWord(L"xyz", {}), L"");
    EXPECT_EQ(ClosestWord(std::wstring(100'000, L'x'), {L"xx"}), L"");
}

TEST(SpellingHelpTest, IsGivenForTheFirstWordsOnly) {
    SpellingHelp help;
    for (std::size_t call = 0; call < SpellingHelp::kMost; ++call) {
        EXPECT_EQ(help.ClosestWord(L"Cmdd", {L"Cmd"}), L"Cmd");
    }
    EXPECT_EQ(help.ClosestWord(L"Cmdd", {L"Cmd"}), L"");
}

}  // namespace
}  // namespace tarn::tools
