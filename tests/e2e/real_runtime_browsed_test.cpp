// A real runtime that the user has browsed to in the dialog.

#include "tests/support/java_report.h"
#include "tests/support/jre_not_found_fixture.h"
#include "tests/support/paths.h"
#include "tests/support/real_runtime_fixture.h"

namespace tarn::test {
namespace {

class BrowsedRuntime : public JreNotFoundFixture {
  protected:
    BrowsedRuntime() {
        settings.Runtime(L"Main Class", L"fixture.Application");
        settings.Set(L"Class Path", L"Class Path", GetPaths().javaFixtures);
        app.environment[L"TARN_TEST_REPORT"] = reportFile_;
    }

    const std::wstring reportFile_ = app.directory + L"report.txt";
};

TEST_F(BrowsedRuntime, RunsTheApplicationNowAndInTheNextStart) {
    InstallRuntime(RuntimeHome("21"), app.Path(L"some java"));
    StartUntilDialog(L"do:facts do:exit:9");
    BrowseTo(app.Path(L"some java"));
    ASSERT_TRUE(OkIsEnabled());
    EXPECT_EQ(Confirm(), 9);
    EXPECT_EQ(JavaReport(reportFile_).One("javaHome"), app.Path(L"some java"));

    DeleteFileW(reportFile_.c_str());
    EXPECT_EQ(app.Launch(L"do:facts do:exit:8")->ExitCode(), 8);
    EXPECT_EQ(JavaReport(reportFile_).One("javaHome"), app.Path(L"some java"));
}

}  // namespace
}  // namespace tarn::test
