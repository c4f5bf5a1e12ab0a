// The end of a real application and its exit code.

#include "tests/support/real_runtime_fixture.h"

namespace tarn::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class RealRuntimeExit : public EachRuntimeFixture {};
INSTANTIATE_TEST_SUITE_P(Java, RealRuntimeExit, kAllRuntimes, RuntimeName);

TEST_P(RealRuntimeExit, IsTheCodeOfSystemExit) {
    EXPECT_EQ(Run(L"do:exit:0"), 0);
    EXPECT_EQ(Run(L"do:exit:1"), 1);
    EXPECT_EQ(Run(L"do:exit:-1"), -1);
    EXPECT_EQ(Run(L"do:exit:256"), 256);
    EXPECT_THAT(Report().All("end"), IsEmpty());
}

TEST_P(RealRuntimeExit, IsZeroWhenMainReturnsWithoutWaitingForThreads) {
    const std::wstring never = NewFilePath(L"never");
    EXPECT_EQ(Run(L"\"do:user:" + never + L"\" \"do:daemon:" + never + L'"'), 0);
    EXPECT_TRUE(Report().Has("end", L"main"));
    EXPECT_THAT(Report().All("background"), IsEmpty());
}

TEST_P(RealRuntimeExit, OfAServiceWaitsForOrdinaryThreads) {
    settings.Application(L"Application Type", L"service");
    const std::wstring released = NewFilePath(L"released");
    const auto process = Start(L"\"do:user:" + released + L'"');
    ASSERT_TRUE(Report().WaitFor("end", L"main"));
    EXPECT_FALSE(process->HasEnded());
    app.AddFile(L"released");
    EXPECT_EQ(process->ExitCode(), 0);
    EXPECT_TRUE(Report().Has("background", L"ended"));
}

TEST_P(RealRuntimeExit, OfAServiceDoesNotWaitForDaemonThreads) {
    settings.Application(L"Application Type", L"service");
    EXPECT_EQ(Run(L"\"do:daemon:" + NewFilePath(L"never") + L'"'), 0);
    EXPECT_TRUE(Report().Has("end", L"main"));
    EXPECT_THAT(Report().All("background"), IsEmpty());
}

TEST_P(RealRuntimeExit, IsThatOfSystemExitOnlyWithAnyProvider) {
    settings.Runtime(L"VM Provider", L"any");
    const std::wstring released = NewFilePath(L"released");
    const auto process = Start(L"\"do:exitLater:7:" + released + L'"');
    ASSERT_TRUE(Report().WaitFor("end", L"main"));
    EXPECT_FALSE(process->HasEnded());
    app.AddFile(L"released");
    EXPECT_EQ(process->ExitCode(), 7);
}

TEST_P(RealRuntimeExit, IsZeroAfterAnExceptionThatIsNotDescribed) {
    EXPECT_EQ(Run(L"do:out:before \"do:throw:out of main\" do:out:after"), 0);
    EXPECT_THAT(StandardOutput(), HasSubstr("before"));
    EXPECT_THAT(StandardOutput(), Not(HasSubstr("after")));
    EXPECT_THAT(Report().All("end"), IsEmpty());
}

TEST_P(RealRuntimeExit, KeepsTheOutput) {
    EXPECT_EQ(Run(L"\"do:out:to the output\" \"do:err:to the error stream\" do:exit:3"), 3);
    EXPECT_THAT(StandardOutput(), HasSubstr("to the output\r\n"));
    EXPECT_THAT(StandardError(), HasSubstr("to the error stream\r\n"));
}

TEST_P(RealRuntimeExit, IsMinusOneWhenTheRuntimeRejectsAnOption) {
    settings.Runtime(L"Virtual Machine Parameters", L"-XX:+NoSuchOptionAtAll");
    const auto process = Start();
    EXPECT_EQ(CloseErrorBox(*process),
              L"JNI exception: failed to create the Java VM\nReason: invalid arguments.\n");
    EXPECT_EQ(process->ExitCode(), -1);
    EXPECT_THAT(StandardError() + StandardOutput(), HasSubstr("NoSuchOptionAtAll"));
}

}  // namespace
}  // namespace tarn::test
