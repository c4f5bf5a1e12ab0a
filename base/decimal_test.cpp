#include "base/decimal.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace tarn {
namespace {

TEST(DecimalTest, WritesSignedDecimals) {
    EXPECT_EQ(DecimalText(0), L"0");
    EXPECT_EQ(DecimalText(7), L"7");
    EXPECT_EQ(DecimalText(-10), L"-10");
    EXPECT_EQ(DecimalText(std::numeric_limits<std::int32_t>::max()), L"2147483647");
    EXPECT_EQ(DecimalText(std::numeric_limits<std::int32_t>::min()), L"-2147483648");
}

TEST(DecimalTest, AgreesWithTheStandardLibrary) {
    std::mt19937 random(1);
    for (int i = 0; i < 10000; ++i) {
        const auto number = static_cast<std::int32_t>(random() >> (random() % 32));
        EXPECT_EQ(DecimalText(number), std::to_wstring(number));
    }
}

}  // namespace
}  // namespace tarn
