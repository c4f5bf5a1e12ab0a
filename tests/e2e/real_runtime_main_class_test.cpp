// How a real runtime finds the main class, and the result when it does not.

#include "tests/support/real_runtime_fixture.h"

namespace tarn::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

class RealRuntimeMainClass : public EachRuntimeFixture {};
INSTANTIATE_TEST_SUITE_P(Java, RealRuntimeMainClass, kAllRuntimes, RuntimeName);

TEST_P(RealRuntimeMainClass, MayBeWrittenWithSlashes) {
    settings.Runtime(L"Main Class", L"fixture/Application");
    EXPECT_EQ(Run(L"do:exit:5"), 5);
}

TEST_P(RealRuntimeMainClass, ThatIsMissingEndsTheProcessWithOne) {
    // The runtime's LauncherHelper prints the message and ends the process; the launcher has no
    // part in it.
    settings.Runtime(L"Main Class", L"fixture.Missing");
    EXPECT_EQ(Run(), 1);
    EXPECT_THAT(StandardError(), HasSubstr("fixture.Missing"));
}

TEST_P(RealRuntimeMainClass, WithoutMainEndsTheProcessWithOne) {
    settings.Runtime(L"Main Class", L"fixture.NoMain");
    EXPECT_EQ(Run(), 1);
    EXPECT_THAT(StandardError(), HasSubstr("fixture.NoMain"));
}

TEST_P(RealRuntimeMainClass, WhoseInitializerThrowsFailsTheLaunchWithItsTrace) {
    settings.Runtime(L"Main Class", L"fixture.FailingInitializer");
    EXPECT_EQ(Run(), -1);
    EXPECT_THAT(StandardError(), HasSubstr("initializer of the main class"));
    EXPECT_THAT(Report().All("end"), IsEmpty());
}

class NewestRuntimeMainClass : public RealRuntimeFixture {};

TEST_F(NewestRuntimeMainClass, WithAnInstanceMainOnlyFailsTheLaunchWithItsTrace) {
    // Since Java 25 LauncherHelper accepts such a class; the launcher calls static methods only.
    UseRuntime("25");
    settings.Runtime(L"Main Class", L"fixture.InstanceMain");
    EXPECT_EQ(Run(), -1);
    EXPECT_THAT(StandardError(), HasSubstr("NoSuchMethodError"));
    EXPECT_THAT(Report().All("end"), IsEmpty());
}

}  // namespace
}  // namespace tarn::test
