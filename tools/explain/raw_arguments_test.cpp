#include "tools/explain/raw_arguments.h"

#include <gtest/gtest.h>

namespace tarn::tools {
namespace {

TEST(RawArgumentsTest, FollowTheDashes) {
    EXPECT_EQ(RawArguments(L"tarn explain a.exe -- one  \"two words\" "), L"one  \"two words\" ");
    EXPECT_EQ(RawArguments(L"\"C:\\My Tools\\tarn.exe\" explain a.exe --json --   x"), L"x");
}

TEST(RawArgumentsTest, MayBeEmptyOrMissing) {
    EXPECT_EQ(RawArguments(L"tarn explain a.exe --"), L"");
    EXPECT_EQ(RawArguments(L"tarn explain a.exe --json"), std::nullopt);
    EXPECT_EQ(RawArguments(L"tarn"), std::nullopt);
    EXPECT_EQ(RawArguments(L""), std::nullopt);
}

TEST(RawArgumentsTest, IgnoreDashesInsideAnArgument) {
    EXPECT_EQ(RawArguments(L"tarn explain \"a -- b.exe\" -- c"), L"c");
    EXPECT_EQ(RawArguments(L"\"C:\\a -- b\\tarn.exe\" explain a--.exe --x"), std::nullopt);
}

TEST(RawArgumentsTest, AcceptAnEscapedQuote) {
    EXPECT_EQ(RawArguments(L"tarn explain a\\\".exe -- c"), L"c");
    EXPECT_EQ(RawArguments(L"tarn explain \"a\\\" -- b\" -- c"), L"c");
    EXPECT_EQ(RawArguments(L"tarn explain \"a\\\\\" -- c"), L"c");
}

TEST(RawArgumentsTest, AcceptAProgramNameThatEndsInABackslash) {
    EXPECT_EQ(RawArguments(L"\"C:\\tools\\\" -- c"), L"c");
}

TEST(RawArgumentsTest, BeginAfterTheFirstDashes) {
    EXPECT_EQ(RawArguments(L"tarn explain a.exe -- b -- c"), L"b -- c");
    EXPECT_EQ(RawArguments(L"tarn explain a.exe \"--\" b"), L"b");
}

}  // namespace
}  // namespace tarn::tools
