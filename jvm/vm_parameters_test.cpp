#include "jvm/vm_parameters.h"

#include <gtest/gtest.h>

namespace tarn {
namespace {

using Tokens = std::vector<std::wstring>;
using Numbers = std::vector<std::uint64_t>;

constexpr std::uint64_t kGiB = 1024ull * 1024 * 1024;
constexpr MemorySizes kMachine{8 * kGiB, 128 * 1024 * kGiB};

TEST(VmParametersTest, SpacesSeparateTokensAndTabsDoNot) {
    EXPECT_EQ(SplitVmParameters(L""), Tokens{});
    EXPECT_EQ(SplitVmParameters(L"a  b"), (Tokens{L"a", L"b"}));
    EXPECT_EQ(SplitVmParameters(L" a\tb "), (Tokens{L"a\tb"}));
    EXPECT_EQ(SplitVmParameters(L"   "), Tokens{});
}

TEST(VmParametersTest, SpacesInsideQuotesDoNotSeparate) {
    EXPECT_EQ(SplitVmParameters(L"-Dn=\"a b\" -Dm=\"c\"d"),
              (Tokens{L"-Dn=\"a b\"", L"-Dm=\"c\"d"}));
}

TEST(VmParametersTest, AnUnclosedQuoteMakesTheRestOneToken) {
    EXPECT_EQ(SplitVmParameters(L"a \"b c d "), (Tokens{L"a", L"\"b c d "}));
}

TEST(VmParametersTest, AnEmptyPairOfQuotesIsAToken) {
    EXPECT_EQ(SplitVmParameters(L"a \"\" b"), (Tokens{L"a", L"\"\"", L"b"}));
}

TEST(VmParametersTest, QuotesAroundARunAreRemoved) {
    EXPECT_EQ(RemoveQuotes(L"-Dname=\"a b\""), L"-Dname=a b");
    EXPECT_EQ(RemoveQuotes(L"\"a\" \"b\""), L"a b");
    EXPECT_EQ(RemoveQuotes(L"\"\""), L"");
    EXPECT_EQ(RemoveQuotes(L"plain"), L"plain");
    EXPECT_EQ(RemoveQuotes(L""), L"");
}

TEST(VmParametersTest, ADoubledClosingQuoteStaysOnceInTheRun) {
    EXPECT_EQ(RemoveQuotes(L"\"a\"\""), L"a\"");
    EXPECT_EQ(RemoveQuotes(L"\"a\"\"b\""), L"a\"b\"");
    EXPECT_EQ(RemoveQuotes(L"\"\"\""), L"\"");
    EXPECT_EQ(RemoveQuotes(L"\"\"\"\""), L"\"\"");
}

TEST(VmParametersTest, TheSearchContinuesAfterTheInsertedText) {
    EXPECT_EQ(RemoveQuotes(L"\"a\"\" \"b\""), L"a\" b");
}

TEST(VmParametersTest, ASingleQuoteStays) {
    EXPECT_EQ(RemoveQuotes(L"-Da=\"b"), L"-Da=\"b");
    EXPECT_EQ(RemoveQuotes(L"\"a\"b\""), L"ab\"");
}

TEST(VmParametersTest, ScansNumbersAndLeavesTheLastCharacterAlone) {
    const ScannedNumbers scanned = ScanNumbers(L"-Xmx50:256:1024p");
    EXPECT_EQ(scanned.prefixLength, 4u);
    EXPECT_EQ(scanned.numbers, (Numbers{50, 256, 1024}));
    EXPECT_EQ(ScanNumbers(L"1024").numbers, Numbers{102});
    EXPECT_EQ(ScanNumbers(L"5").numbers, Numbers{0});
    EXPECT_EQ(ScanNumbers(L":").numbers, Numbers{0});
    EXPECT_EQ(ScanNumbers(L":5p").numbers, (Numbers{0, 5}));
    EXPECT_EQ(ScanNumbers(L"1x2-3k").numbers, Numbers{123});
}

TEST(VmParametersTest, ATextWithoutNumbersIsAllPrefix) {
    const ScannedNumbers scanned = ScanNumbers(L"-Xmxp");
    EXPECT_EQ(scanned.prefixLength, 5u);
    EXPECT_TRUE(scanned.numbers.empty());
    EXPECT_EQ(ScanNumbers(L"").prefixLength, 0u);
}

TEST(VmParametersTest, ANumberBeyond64BitsWraps) {
    EXPECT_EQ(ScanNumbers(L"18446744073709551617k").numbers, Numbers{1});
}

TEST(VmParametersTest, PercentageFormsAreTheThreeSizesWithTheirLetters) {
    for (const wchar_t* option : {L"-Xms25p", L"-Xmx50P", L"-Xss1t", L"-Xmx1:2:3T", L"-XmxP"}) {
        EXPECT_TRUE(HasPercentageForm(option)) << option;
    }
    for (const wchar_t* option :
         {L"-XMX50p", L"-Xmn50p", L"-Xmx50m", L"-Xmx", L"-Xss", L"", L"p", L"Xmx50p"}) {
        EXPECT_FALSE(HasPercentageForm(option)) << option;
    }
}

TEST(VmParametersTest, PercentagesOfTheMemoryBecomeKibibytes) {
    EXPECT_EQ(ResolvePercentage(L"-Xms25p", kMachine), L"-Xms2097152K");
    EXPECT_EQ(ResolvePercentage(L"-Xmx0p", kMachine), L"-Xmx0K");
    EXPECT_EQ(ResolvePercentage(L"-Xmx33P", {100 * 1024, 0}), L"-Xmx33K");
    EXPECT_EQ(ResolvePercentage(L"-Xmx50t", {0, 1000 * 1024}), L"-Xmx500K");
}

TEST(VmParametersTest, TheSizeIsTruncatedTowardsZero) {
    EXPECT_EQ(ResolvePercentage(L"-Xmx50p", {3 * 1024 + 1023, 0}), L"-Xmx1K");
    EXPECT_EQ(ResolvePercentage(L"-Xmx29p", {100 * 1024, 0}), L"-Xmx28K");  // 100 * 0.29 < 29
}

TEST(VmParametersTest, MaximumAndMinimumAreInMebibytesAndTheMinimumWins) {
    EXPECT_EQ(ResolvePercentage(L"-Xmx50:256:1024p", kMachine), L"-Xmx1048576K");
    EXPECT_EQ(ResolvePercentage(L"-Xmx1:256p", kMachine), L"-Xmx262144K");
    EXPECT_EQ(ResolvePercentage(L"-Xmx50:2048:1024p", kMachine), L"-Xmx2097152K");
    EXPECT_EQ(ResolvePercentage(L"-Xmx50::1024p", kMachine), L"-Xmx1048576K");
    EXPECT_EQ(ResolvePercentage(L"-Xmx50:256:1024:9p", kMachine), L"-Xmx1048576K");
}

TEST(VmParametersTest, SizesFrom2To31KibibytesOnWrap) {
    EXPECT_EQ(ResolvePercentage(L"-Xmx100t", {0, 2048 * kGiB}), L"-Xmx-2147483648K");
    EXPECT_EQ(ResolvePercentage(L"-Xmx100t", {0, 4096 * kGiB}), L"-Xmx0K");
}

TEST(VmParametersTest, APercentageWithoutANumberKeepsItsLetterInThePrefix) {
    EXPECT_EQ(ResolvePercentage(L"-Xmxp", kMachine), L"-Xmxp0K");
}

TEST(VmParametersTest, AnEnormousPercentageIsANumberToo) {
    EXPECT_EQ(ResolvePercentage(L"-Xmx18446744073709551615:0:64p", kMachine), L"-Xmx65536K");
}

TEST(VmParametersTest, StackSizesHaveTheirUnit) {
    EXPECT_EQ(StackSizeOf(L"-Xss512k"), 524288u);
    EXPECT_EQ(StackSizeOf(L"-Xss1m"), 1048576u);
    EXPECT_EQ(StackSizeOf(L"-Xss2G"), 2 * kGiB);
    EXPECT_EQ(StackSizeOf(L"-Xss64K"), 65536u);
    EXPECT_EQ(StackSizeOf(L"-Xss3M"), 3u * 1048576);
    EXPECT_EQ(StackSizeOf(L"-Xss100b"), 100u);
}

TEST(VmParametersTest, TheLastDigitCountsAsTheUnit) {
    EXPECT_EQ(StackSizeOf(L"-Xss1024"), 102u);
    EXPECT_EQ(StackSizeOf(L"-Xss5"), 0u);
}

TEST(VmParametersTest, AnythingButOneNumberLeavesTheStackSizeToTheJvm) {
    EXPECT_EQ(StackSizeOf(L"-Xss1:2m"), 0u);
    EXPECT_EQ(StackSizeOf(L"-Xss=1m"), 0u);
    EXPECT_EQ(StackSizeOf(L"-Xssm"), 0u);
    EXPECT_EQ(StackSizeOf(L"-Xss"), 0u);
    EXPECT_EQ(StackSizeOf(L"-Xss-5m"), 0u);
}

}  // namespace
}  // namespace tarn
