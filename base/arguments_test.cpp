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

}  // namespace
}  // namespace tarn
