// A real runtime that is shipped with the application.

#include "tests/support/real_runtime_fixture.h"

namespace tarn::test {
namespace {

class ShippedRuntime : public RealRuntimeFixture {};

TEST_F(ShippedRuntime, InJre64BesideTheApplicationNeedsNoSetting) {
    InstallRuntime(RuntimeHome("17"), app.Path(L"jre64"));
    ASSERT_EQ(Run(L"do:facts do:exit:9"), 9);
    EXPECT_EQ(Report().One("environment:TARN_JVM_HOME"), app.Path(L"jre64"));
    EXPECT_EQ(Report().One("javaHome"), app.Path(L"jre64"));
}

TEST_F(ShippedRuntime, WhoseBinFolderContainsTheApplicationsFolderIsUsed) {
    InstallRuntime(RuntimeHome("21"), app.folder().substr(0, app.folder().size() - 1));
    ASSERT_EQ(Run(L"do:facts do:exit:9"), 9);
    EXPECT_EQ(Report().One("environment:TARN_JVM_PATH"), app.Path(L"bin\\server\\jvm.dll"));
}

TEST_F(ShippedRuntime, IsReplacedByTheConfiguredOne) {
    InstallRuntime(RuntimeHome("17"), app.Path(L"jre64"));
    UseRuntime("25");
    ASSERT_EQ(Run(L"do:facts"), 0);
    EXPECT_EQ(Report().One("environment:TARN_JVM_HOME"), home);
}

}  // namespace
}  // namespace tarn::test
