#include "base/environment.h"

#include <gtest/gtest.h>

#include "base/windows.h"

namespace tarn {
namespace {

class EnvironmentTest : public testing::Test {
  protected:
    void TearDown() override { SetEnvironmentVariableW(L"TARN_TEST", nullptr); }
    static void Set(const std::wstring& value) {
        ASSERT_TRUE(SetEnvironmentVariableW(L"TARN_TEST", value.c_str()));
    }
};

TEST_F(EnvironmentTest, ReplacesKnownVariablesAndLeavesOthers) {
    Set(L"v\u00E4lue");
    EXPECT_EQ(ExpandEnvironment(L"a%TARN_TEST%b"), L"av\u00E4lueb");
    EXPECT_EQ(ExpandEnvironment(L"%TARN_NO_SUCH%"), L"%TARN_NO_SUCH%");
    EXPECT_EQ(ExpandEnvironment(L"100%"), L"100%");
}

TEST_F(EnvironmentTest, AnEmptyTextStaysEmpty) {
    EXPECT_EQ(ExpandEnvironment(L""), L"");
}

TEST_F(EnvironmentTest, ValuesOfAnyLengthFit) {
    const std::wstring value(32000, L'x');
    Set(value);
    EXPECT_EQ(ExpandEnvironment(L"%TARN_TEST%"), value);
}

TEST_F(EnvironmentTest, AShorterResultIsNotPadded) {
    Set(L"1");
    EXPECT_EQ(ExpandEnvironment(L"%TARN_TEST%;"), L"1;");
}

}  // namespace
}  // namespace tarn
