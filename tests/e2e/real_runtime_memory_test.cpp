// Heap and stack of a real runtime, sized by the settings.

#include "base/windows.h"
#include "tests/support/real_runtime_fixture.h"

namespace tarn::test {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

constexpr long long kMiB = 1024 * 1024;

class RealRuntimeMemory : public EachRuntimeFixture {
  protected:
    // The options that begin with "-X".
    std::vector<std::string> SizeOptions() const {
        std::vector<std::string> options;
        for (const std::wstring& option : Report().All("jvmArgument")) {
            if (option.starts_with(L"-X")) options.push_back(ToUtf8(option));
        }
        return options;
    }

    long long DepthWith(const std::wstring& option) {
        settings.Runtime(L"Virtual Machine Parameters", L"-Xint " + option);
        EXPECT_EQ(Run(L"do:recurse"), 0) << ToUtf8(option);
        return Report().Number("depth");
    }
};
INSTANTIATE_TEST_SUITE_P(Java, RealRuntimeMemory, kAllRuntimes, RuntimeName);

TEST_P(RealRuntimeMemory, PercentagesWithBoundsBecomeSizes) {
    // Every machine has more than 128 MiB, so the bounds decide.
    settings.Runtime(L"Virtual Machine Parameters", L"-Xms1:16:16p -Xmx50:64:128P -Xss0:2p");
    ASSERT_EQ(Run(L"do:facts"), 0);
    EXPECT_THAT(SizeOptions(), ElementsAre("-Xms16384K", "-Xmx131072K", "-Xss2048K"));
    // A collector may exclude a part of the heap that it keeps free.
    EXPECT_GT(Report().Number("maxMemory"), 100 * kMiB);
    EXPECT_LE(Report().Number("maxMemory"), 128 * kMiB);
}

TEST_P(RealRuntimeMemory, APercentageIsOfThePhysicalMemory) {
    settings.Runtime(L"Virtual Machine Parameters", L"-Xmx12p");
    ASSERT_EQ(Run(L"do:facts"), 0);
    MEMORYSTATUS memory{};
    GlobalMemoryStatus(&memory);
    const auto expected =
        static_cast<long long>(static_cast<double>(memory.dwTotalPhys >> 10) * 0.12);
    EXPECT_THAT(SizeOptions(), ElementsAre("-Xmx" + std::to_string(expected) + "K"));
    EXPECT_NEAR(static_cast<double>(Report().Number("maxMemory")),
                static_cast<double>(expected) * 1024, static_cast<double>(expected) * 1024 * 0.1);
}

TEST_P(RealRuntimeMemory, AMaximumAlsoAppliesToTheAddressSpace) {
    settings.Runtime(L"Virtual Machine Parameters", L"-Xmx1:16:96t");
    ASSERT_EQ(Run(L"do:facts"), 0);
    EXPECT_THAT(SizeOptions(), ElementsAre("-Xmx98304K"));
}

TEST_P(RealRuntimeMemory, RecursionGetsDeeperWithABiggerStack) {
    const long long small = DepthWith(L"-Xss1m");
    const long long big = DepthWith(L"-Xss16m");
    EXPECT_GT(small, 1000);
    EXPECT_GT(big, small * 8);
}

}  // namespace
}  // namespace tarn::test
