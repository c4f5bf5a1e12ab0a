#include "tools/common/child_process.h"

#include <cstdlib>

#include "tools/common/folder_fixture.h"

namespace tarn::tools {
namespace {

using namespace std::chrono_literals;

class ChildProcess : public FolderTest {};

// Another PATH for this process, until the end of the scope.
class ScopedPath {
  public:
    explicit ScopedPath(const std::string& value) : before_(std::getenv("PATH")) { Set(value); }
    ~ScopedPath() { Set(before_); }

  private:
    static void Set(const std::string& value) {
#ifdef _WIN32
        _putenv_s("PATH", value.c_str());
#else
        setenv("PATH", value.c_str(), 1);
#endif
    }

    std::string before_;
};

TEST_F(ChildProcess, IsNotStartedWhenThereIsNoSuchProgram) {
    EXPECT_FALSE(RunProgram("no-program-has-this-name", {}).isStarted);
}

// The test's folder is the current one.
class ChildProcessInProject : public ChildProcess {
  protected:
    void SetUp() override {
        ChildProcess::SetUp();
        before_ = std::filesystem::current_path();
        std::filesystem::current_path(folder_);
        for (const char* const name : {"makensis", "makensis.exe", "sh", "cmd.exe"}) {
            std::filesystem::permissions(Put(name, "#!/bin/sh\necho planted\n"),
                                         std::filesystem::perms::owner_all);
        }
    }
    void TearDown() override {
        std::filesystem::current_path(before_);
        ChildProcess::TearDown();
    }

  private:
    std::filesystem::path before_;
};

TEST_F(ChildProcessInProject, IsNotAProgramOfTheCurrentFolder) {
    // Where makensis is installed, another one is found.
    EXPECT_NE(FindProgram("makensis").parent_path(), folder_);
    EXPECT_FALSE(RunProgram("makensis", {"-VERSION"}).output.starts_with("planted"));
    EXPECT_EQ(RunShellCommand("echo own", "file").output.substr(0, 3), "own");
}

TEST_F(ChildProcessInProject, IsNotAProgramOfARelativeFolderInThePath) {
    for (const char* const path : {".", "", "::;;", ".:./;.\\"}) {
        const ScopedPath scoped(path);
        EXPECT_EQ(FindProgram("makensis"), "") << path;
    }
    const ScopedPath scoped(folder_.string());
    EXPECT_TRUE(std::filesystem::exists(FindProgram("makensis")));
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
