#include "settings/jre_path_store.h"

#include <gtest/gtest.h>

namespace tarn {
namespace {

using namespace std::string_view_literals;

TEST(IsAnsiTextTest, TextWithoutAMarkIsInTheCodePage) {
    EXPECT_TRUE(IsAnsiText(""));
    EXPECT_TRUE(IsAnsiText("[A]\r\nk=\xE9\r\n"));
    EXPECT_TRUE(IsAnsiText(";\xEF\xBB\xBF"));
}

TEST(IsAnsiTextTest, AByteOrderMarkSaysOtherwise) {
    EXPECT_FALSE(IsAnsiText("\xFF\xFE"));
    EXPECT_FALSE(IsAnsiText("\xFF\xFE[\0A\0]\0"sv));
    EXPECT_FALSE(IsAnsiText("\xFE\xFF\0[\0A\0]"sv));
    EXPECT_FALSE(IsAnsiText("\xEF\xBB\xBF[A]\r\n"));
}

TEST(IsAnsiTextTest, NullCharactersAreNotInTheCodePage) {
    EXPECT_FALSE(IsAnsiText("[A]\r\nk=\0\r\n"sv));
    EXPECT_FALSE(IsAnsiText("[\0A\0]\0"sv));
}

}  // namespace
}  // namespace tarn
