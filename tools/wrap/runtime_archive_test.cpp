// On Windows the runtime's program would have to be a real one; tests/tools/fast_start_test.py runs
// real runtimes.
#ifndef _WIN32
#include "tools/wrap/runtime_archive.h"

#include <gmock/gmock.h>

#include <cstdlib>

#include "tools/common/failure.h"
#include "tools/common/folder_fixture.h"

namespace tarn::tools {
namespace {

using namespace std::chrono_literals;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
namespace fs = std::filesystem;

/// An environment variable with another value during a test.
class Variable {
  public:
    Variable(const char* name, const std::string& value) : name_(name) {
        const char* const before = std::getenv(name);
        before_ = before == nullptr ? "" : before;
        setenv(name, value.c_str(), 1);
    }
    ~Variable() { setenv(name_, before_.c_str(), 1); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

  private:
    const char* name_;
    std::string before_;
};

/// A runtime whose java.exe is a script, and a `wine` that runs it.
class RuntimeArchive : public FolderTest {
  protected:
    void SetUp() override {
        FolderTest::SetUp();
        Put("runtime/bin/server/jvm.dll", "library");
        Put("prefix/system.reg", "registry");
        Put("programs/wine", "#!/bin/sh\nexec sh \"$@\"\n");
        fs::permissions(folder_ / "programs/wine", fs::perms::owner_all);
    }

    /// Makes the archive with a java.exe that writes something and does what the script says.
    void Make(const std::string& script, std::chrono::milliseconds timeLimit) {
        Put("runtime/bin/java.exe",
            "echo \"$@\" >\"${0%java.exe}server/classes.jsa\"\n" + script + "\n");
        const Variable path("PATH", (folder_ / "programs").string() + ":" + std::getenv("PATH"));
        const Variable prefix("WINEPREFIX", (folder_ / "prefix").string());
        MakeRuntimeArchive(folder_ / "runtime", "my runtime", warnings_, timeLimit);
    }

    fs::path archive() const { return folder_ / "runtime/bin/server/classes.jsa"; }

    std::vector<std::string> warnings_;
};

TEST_F(RuntimeArchive, IsMadeByTheRuntimesOwnProgram) {
    Make("exit 0", 5min);
    EXPECT_THAT(warnings_, IsEmpty());
    EXPECT_EQ(TextOf(archive()), "-Xshare:dump\n");
}

TEST_F(RuntimeArchive, OfAProgramThatFailsIsRemovedWithAWarning) {
    Make("exit 1", 5min);
    EXPECT_THAT(warnings_, ElementsAre(HasSubstr("-Xshare:dump")));
    EXPECT_FALSE(fs::exists(archive()));
}

TEST_F(RuntimeArchive, OfAProgramThatHangsIsRemovedWithAnErrorThatNamesTheRuntime) {
    try {
        Make("exec tail -f /dev/null", 300ms);
        FAIL() << "no error";
    } catch (const Failure& failure) {
        EXPECT_THAT(failure.what(), AllOf(HasSubstr("my runtime: "), HasSubstr("has not ended"),
                                          HasSubstr("--no-runtime-archive")));
    }
    EXPECT_FALSE(fs::exists(archive()));
}

}  // namespace
}  // namespace tarn::tools
#endif
