#include "settings/keys.h"

#include <gtest/gtest.h>

namespace tarn {
namespace {

TEST(KeysTest, TheYesFormIgnoresCase) {
    EXPECT_TRUE(IsYes(L"Yes"));
    EXPECT_TRUE(IsYes(L"yes"));
    EXPECT_TRUE(IsYes(L"YES"));
    EXPECT_FALSE(IsYes(L"Yes "));
    EXPECT_FALSE(IsYes(L"true"));
    EXPECT_FALSE(IsYes(L""));
}

TEST(KeysTest, TheExactFormIsCaseSensitive) {
    EXPECT_TRUE(IsExactlyYes(L"yes"));
    EXPECT_FALSE(IsExactlyYes(L"Yes"));
    EXPECT_FALSE(IsExactlyYes(L"yes "));
    EXPECT_FALSE(IsExactlyYes(L""));
}

}  // namespace
}  // namespace tarn
