#include "tools/stamp/string_option.h"

#include <gtest/gtest.h>

#include "tools/common/failure.h"

namespace tarn::tools {
namespace {

TEST(StringOptionTest, SplitsAtTheFirstEqualsSign) {
    EXPECT_EQ(ParseStringOption("210=a=b"), (std::pair<std::uint16_t, std::string>(210, "a=b")));
    EXPECT_EQ(ParseStringOption("0="), (std::pair<std::uint16_t, std::string>(0, "")));
}

TEST(StringOptionTest, ResolvesEscapes) {
    EXPECT_EQ(ParseStringOption("1=a\\nb\\tc\\\\d\\e\\").second, "a\nb\tc\\d\\e\\");
}

TEST(StringOptionTest, RejectsOtherIds) {
    for (const char* const text : {"", "210", "=x", "x=y", "70000=x", "-1=x", " 1=x", "1 =x"}) {
        EXPECT_THROW(ParseStringOption(text), Failure) << text;
    }
}

}  // namespace
}  // namespace tarn::tools
