#include "runtime/runtime_version.h"

#include <gtest/gtest.h>

namespace tarn {
namespace {

std::wstring Phrase(const wchar_t* minimum, const wchar_t* maximum) {
    return DescribeVersionBounds(MinimumBound(minimum), MaximumBound(maximum));
}

TEST(DescribeVersionBoundsTest, FormatsTheTextOfTheStringTable) {
    EXPECT_EQ(Phrase(L"any", L"any"), L"latest version");
    EXPECT_EQ(Phrase(L"any", L"1.8"), L"maximum version 1.8");
    EXPECT_EQ(Phrase(L"1.8", L"any"), L"minimum version 1.8");
    EXPECT_EQ(Phrase(L"1.8.0_231", L"1.8.0_231"), L"version 1.8.0.231 is required");
    EXPECT_EQ(Phrase(L"1.6", L"1.8"), L"version between 1.6 and 1.8");
}

}  // namespace
}  // namespace tarn
