#include <gtest/gtest.h>

#include "settings/layered_settings.h"

namespace tarn {
namespace {

TEST(AppendValueTest, ABlankSeparatesTheTwo) {
    EXPECT_EQ(AppendValue(L"-Xms1g", L"-Xmx1g"), L"-Xms1g -Xmx1g");
}

TEST(AppendValueTest, TheBlankIsThereEvenWhenNothingStandsBelow) {
    EXPECT_EQ(AppendValue(L"", L"-Xmx1g"), L" -Xmx1g");
}

TEST(AppendValueTest, AValueThatBeginsWithABlankGetsNoOther) {
    EXPECT_EQ(AppendValue(L"a", L" b"), L"a b");
    EXPECT_EQ(AppendValue(L"", L" b"), L" b");
}

TEST(AppendValueTest, AnEmptyValueChangesNothing) {
    EXPECT_EQ(AppendValue(L"a", L""), L"a");
    EXPECT_EQ(AppendValue(L"", L""), L"");
}

}  // namespace
}  // namespace tarn
