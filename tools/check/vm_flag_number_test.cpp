#include "tools/check/vm_flag_number.h"

#include <gtest/gtest.h>

namespace tarn::tools {
namespace {

double ValueOf(FlagKind kind, std::string_view text) {
    const std::optional<VmFlagNumber> number = ParseVmFlagNumber(kind, text);
    return number ? number->value : -12345;
}

TEST(VmFlagNumberTest, ReadsWholeNumbersWithUnits) {
    EXPECT_EQ(ValueOf(FlagKind::Number, "0"), 0);
    EXPECT_EQ(ValueOf(FlagKind::Number, "-5"), -5);
    EXPECT_EQ(ValueOf(FlagKind::Number, "64m"), 64.0 * 1024 * 1024);
    EXPECT_EQ(ValueOf(FlagKind::Number, "1T"), 1024.0 * 1024 * 1024 * 1024);
    EXPECT_EQ(ValueOf(FlagKind::Number, "0x1Fk"), 31.0 * 1024);
    EXPECT_EQ(ValueOf(FlagKind::Decimal, "50"), 50);
}

TEST(VmFlagNumberTest, RejectsOtherTexts) {
    for (const std::string_view text :
         {"", "-", "x", "1x", "64MB", "k", "0x", "0xG", "1.5", "+9", " 1", "50%", "--1",
          "99999999999999999999", "99999999999t"}) {
        EXPECT_FALSE(ParseVmFlagNumber(FlagKind::Number, text)) << text;
    }
    for (const std::string_view text : {"", "50%", "1.5m", "nan", "inf", "1,5", ".", "e", "1.5e"}) {
        EXPECT_FALSE(ParseVmFlagNumber(FlagKind::Decimal, text)) << text;
    }
}

TEST(VmFlagNumberTest, KnowsTheDecimalsThatOldVersionsRefuse) {
    const auto isNewForm = [](std::string_view text) {
        return ParseVmFlagNumber(FlagKind::Decimal, text)->isNewForm;
    };
    for (const std::string_view text : {"50", "50.0", "-1.5", "5.0e1", "0x10"}) {
        EXPECT_FALSE(isNewForm(text)) << text;
    }
    for (const std::string_view text : {"5e1", ".5", "50.", "+50.0"}) {
        EXPECT_TRUE(isNewForm(text)) << text;
    }
}

TEST(VmFlagNumberTest, ComparesWithTheRangeOfTheFlag) {
    const VmFlag& percentage = *FindVmFlag("MaxRAMPercentage");
    EXPECT_TRUE(IsInRange(percentage, 0));
    EXPECT_TRUE(IsInRange(percentage, 100));
    EXPECT_FALSE(IsInRange(percentage, 100.5));
    EXPECT_FALSE(IsInRange(percentage, -1));
    EXPECT_FALSE(IsInRange(*FindVmFlag("MaxHeapSize"), -1));
    EXPECT_TRUE(IsInRange(*FindVmFlag("MaxHeapSize"), 1e15));
    EXPECT_TRUE(IsInRange(*FindVmFlag("ActiveProcessorCount"), -5));
}

}  // namespace
}  // namespace tarn::tools
