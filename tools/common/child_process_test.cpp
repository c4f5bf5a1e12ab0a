#include "tools/common/child_process.h"

#include "tools/common/folder_fixture.h"

namespace tarn::tools {
namespace {

using namespace std::chrono_literals;

class ChildProcess : public FolderTest {};

TEST_F(ChildProcess, IsNotStartedWhenThereIsNoSuchProgram) {
    EXPECT_FALSE(RunProgram("no-program-has-this-name", {}).isStarted);
}

TEST_F(ChildProcess, GetsTheFileAsTheLastArgumentOfAShellCommand) {
    const ProcessResult result = RunShellCommand("echo signed", folder_ / "a b.exe");
    EXPECT_TRUE(result.isStarted);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_TRUE(result.output.starts_with("signed ")) << result.output;
    EXPECT_NE(result.output.find("a b.exe"), std::string::npos) << result.output;
}

TEST_F(ChildProcess, GivesItsExitCode) {
#ifdef _WIN32
    EXPECT_EQ(RunProgram("cmd.exe", {"/c", "exit 3"}).exitCode, 3);
#else
    EXPECT_EQ(RunProgram("sh", {"-c", "exit 3"}).exitCode, 3);
#endif
}

TEST_F(ChildProcess, IsEndedAfterItsTimeLimit) {
#ifdef _WIN32
    const ProcessResult result =
        RunSilently("cmd.exe", {"/c", "for /l %i in (1,0,2) do rem"}, {}, 100ms);
#else
    const ProcessResult result = RunSilently("tail", {"-f", "/dev/null"}, {}, 100ms);
#endif
    EXPECT_TRUE(result.isStarted);
    EXPECT_TRUE(result.isTimedOut);
    EXPECT_NE(result.exitCode, 0);
}

TEST_F(ChildProcess, GivesItsExitCodeWithinItsTimeLimit) {
#ifdef _WIN32
    const ProcessResult result = RunSilently("cmd.exe", {"/c", "exit 3"}, {}, 5min);
#else
    const ProcessResult result = RunSilently("sh", {"-c", "exit 3"}, {}, 5min);
#endif
    EXPECT_FALSE(result.isTimedOut);
    EXPECT_EQ(result.exitCode, 3);
}

TEST_F(ChildProcess, IsNotWaitedForWhenThereIsNoSuchProgram) {
    EXPECT_FALSE(RunSilently("no-program-has-this-name", {}, {}, 5min).isStarted);
}

#ifndef _WIN32
TEST_F(ChildProcess, RunsInItsFolderWithItsArguments) {
    const ProcessResult result =
        RunProgram("sh", {"-c", "pwd -P; echo \"$0\" >&2", "a \"$HOME\" b"}, folder_);
    EXPECT_EQ(result.output, std::filesystem::canonical(folder_).string() + "\na \"$HOME\" b\n");
}
#endif

}  // namespace
}  // namespace tarn::tools
