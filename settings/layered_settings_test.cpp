#include <gtest/gtest.h>

#include "settings/layered_settings.h"

namespace tarn {
namespace {

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

}  // namespace
}  // namespace tarn
