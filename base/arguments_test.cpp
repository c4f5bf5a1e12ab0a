#include "base/arguments.h"

#include <gtest/gtest.h>

namespace tarn {
namespace {

using Arguments = std::vector<std::wstring>;

TEST(ArgumentsTest, AnEmptyTextHasNone) {
    EXPECT_EQ(SplitArguments(L""), Arguments{});
    EXPECT_EQ(SplitArguments(L"   "), Arguments{});
}

TEST(ArgumentsTest, ConsecutiveSpacesSeparateOnce) {
    EXPECT_EQ(SplitArguments(L"  a  b "), (Arguments{L"a", L"b"}));
}

TEST(ArgumentsTest, ATabDoesNotSeparate) {
    EXPECT_EQ(SplitArguments(L"a\tb c"), (Arguments{L"a\tb", L"c"}));
}

TEST(ArgumentsTest, QuotesGroupAndAreRemoved) {
    EXPECT_EQ(SplitArguments(L"\"C:\\My Apps\\x.exe\"  a  \"b c\""),
              (Arguments{L"C:\\My Apps\\x.exe", L"a", L"b c"}));
}

TEST(ArgumentsTest, QuotesInsideAnUnquotedArgumentStay) {
    EXPECT_EQ(SplitArguments(L"a\"b c\"d"), (Arguments{L"a\"b", L"c\"d"}));
}

TEST(ArgumentsTest, TextAfterAClosingQuoteBeginsANewArgument) {
    EXPECT_EQ(SplitArguments(L"\"a\"b"), (Arguments{L"a", L"b"}));
    EXPECT_EQ(SplitArguments(L"\"a\"\"b\""), (Arguments{L"a", L"b"}));
}

TEST(ArgumentsTest, AnUnterminatedQuoteExtendsToTheEnd) {
    EXPECT_EQ(SplitArguments(L"a \"b c "), (Arguments{L"a", L"b c "}));
    EXPECT_EQ(SplitArguments(L"a \""), (Arguments{L"a", L""}));
}

TEST(ArgumentsTest, EmptyQuotesGiveAnEmptyArgument) {
    EXPECT_EQ(SplitArguments(L"a \"\" b"), (Arguments{L"a", L"", L"b"}));
}

TEST(ArgumentsTest, ABackslashEscapesNothing) {
    EXPECT_EQ(SplitArguments(L"\"a\\\" b\""), (Arguments{L"a\\", L"b\""}));
}

TEST(CommandLineTest, AnEmptyLineOrAPathAloneHasNoArguments) {
    EXPECT_EQ(ArgumentsOf(L""), Arguments{});
    EXPECT_EQ(ArgumentsOf(L"  \t "), Arguments{});
    EXPECT_EQ(ArgumentsOf(L"sample.exe"), Arguments{});
    EXPECT_EQ(ArgumentsOf(L"\"C:\\My Apps\\sample.exe\" "), Arguments{});
}

TEST(CommandLineTest, ArgumentsFollowTheQuotedPath) {
    EXPECT_EQ(ArgumentsOf(L"\"C:\\My Apps\\sample.exe\"  a  \"b c\""), (Arguments{L"a", L"b c"}));
}

TEST(CommandLineTest, AnUnquotedPathEndsAtTheFirstSpace) {
    EXPECT_EQ(ArgumentsOf(L"C:\\My Apps\\sample.exe a"), (Arguments{L"Apps\\sample.exe", L"a"}));
}

TEST(CommandLineTest, TabsAreKeptInsideButNotAtTheEnds) {
    EXPECT_EQ(ArgumentsOf(L"\tx.exe a\tb\t"), Arguments{L"a\tb"});
}

TEST(CommandLineTest, EmptyArgumentsAreArguments) {
    EXPECT_EQ(ArgumentsOf(L"x.exe \"\" a \"\""), (Arguments{L"", L"a", L""}));
}

TEST(CommandLineTest, OnlyTheExactWordsSuppressTheSplash) {
    EXPECT_TRUE(SuppressesSplash({L"a", L"-nosplash"}));
    EXPECT_TRUE(SuppressesSplash({L"/nosplash", L"b"}));
    EXPECT_FALSE(SuppressesSplash({L"-NOSPLASH", L"/NoSplash", L"-nosplash=1", L"nosplash"}));
    EXPECT_FALSE(SuppressesSplash({}));
}

}  // namespace
}  // namespace tarn
