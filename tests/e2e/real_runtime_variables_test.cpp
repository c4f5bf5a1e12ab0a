// The environment variables with JVM options, as `tarn explain` describes them.

#include "tests/support/real_runtime_fixture.h"

namespace tarn::test {
namespace {

class RealRuntimeVariables : public EachRuntimeFixture {
  protected:
    /// The heap of a launch whose settings have `-Xmx64m` or no such option, in MiB.
    long long MaximumHeap(bool isSet) {
        constexpr long long kMiB = 1024 * 1024;
        if (isSet) settings.Runtime(L"Virtual Machine Parameters", L"-XX:+UseParallelGC -Xmx64m");
        EXPECT_EQ(Run(L"do:facts"), 0);
        return Report().Number("maxMemory") / kMiB;
    }
};
INSTANTIATE_TEST_SUITE_P(Java, RealRuntimeVariables, kAllRuntimes, RuntimeName);

TEST_P(RealRuntimeVariables, JavaToolOptionsAreOverriddenByTheSettings) {
    app.environment[L"JAVA_TOOL_OPTIONS"] = L"-Xmx96m";
    EXPECT_LE(MaximumHeap(true), 64);
}

TEST_P(RealRuntimeVariables, JavaToolOptionsApplyWhereTheSettingsHaveNone) {
    app.environment[L"JAVA_TOOL_OPTIONS"] = L"-Xmx96m";
    EXPECT_LE(MaximumHeap(false), 96);
}

TEST_P(RealRuntimeVariables, JavaOptionsOverrideTheSettings) {
    app.environment[L"_JAVA_OPTIONS"] = L"-Xmx192m";
    EXPECT_GT(MaximumHeap(true), 128);
}

TEST_P(RealRuntimeVariables, JdkJavaOptionsAreIgnored) {
    app.environment[L"JDK_JAVA_OPTIONS"] = L"-Xmx192m";
    EXPECT_LE(MaximumHeap(true), 64);
}

}  // namespace
}  // namespace tarn::test
