// The environment of the JVM: Path, the TARN_ variables, the working directory.

#include "tests/support/fake_jvm_fixture.h"

namespace tarn::test {
namespace {

class JavaEnvironment : public FakeJvmFixture {
  protected:
    JavaEnvironment() { app.environment[L"PATH"] = L"C:\\windows\\system32;C:\\p"; }

    std::wstring RuntimeBin() const { return app.Path(L"jre\\bin"); }
    std::string LoggedPath() const { return app.Log().After("environment Path="); }
};

TEST_F(JavaEnvironment, PathEndsWithTheRuntimesFolder) {
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(LoggedPath(), TextInLog(L"C:\\windows\\system32;C:\\p;" + RuntimeBin()));
}

TEST_F(JavaEnvironment, PathIsSetBeforeTheLibraryIsLoaded) {
    EXPECT_EQ(Run(), 0);
    // The lines of the library itself: loaded, error mode, environment.
    const auto texts = app.Log().Texts();
    ASSERT_GE(texts.size(), 3U);
    EXPECT_EQ(texts[0], "jvm.dll loaded");
    EXPECT_EQ(texts[2],
              "environment Path=" + TextInLog(L"C:\\windows\\system32;C:\\p;" + RuntimeBin()));
}

TEST_F(JavaEnvironment, PathBeginsWithTheSettings) {
    app.environment[L"TARN_PROBE"] = L"D:\\probe";
    settings.Runtime(L"System Path", L"C:\\first;%TARN_PROBE%\\%TARN_UNKNOWN%");
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(LoggedPath(), TextInLog(L"C:\\first;D:\\probe\\%TARN_UNKNOWN%;C:\\windows\\system32;"
                                      L"C:\\p;" +
                                      RuntimeBin()));
}

TEST_F(JavaEnvironment, PathGetsNoSecondSemicolon) {
    settings.Runtime(L"System Path", L"C:\\first;");
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(LoggedPath(), TextInLog(L"C:\\first;C:\\windows\\system32;C:\\p;" + RuntimeBin()));
}

TEST_F(JavaEnvironment, SystemPathMayNameTheRuntime) {
    settings.Runtime(L"System Path", L"%TARN_JVM_HOME%\\lib");
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(LoggedPath(),
              TextInLog(app.Path(L"jre\\lib;C:\\windows\\system32;C:\\p;") + RuntimeBin()));
}

TEST_F(JavaEnvironment, PathMayHaveTenThousandCharacters) {
    const std::wstring path = L"C:\\" + Repeated(L"0123456789", 1000);
    app.environment[L"PATH"] = L"C:\\windows\\system32;" + path;
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(LoggedPath(), TextInLog(L"C:\\windows\\system32;" + path + L';' + RuntimeBin()));
}

TEST_F(JavaEnvironment, WithoutPathItsNameStays) {
    app.environment[L"PATH"] = std::nullopt;
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(LoggedPath(), TextInLog(L"%Path%;" + RuntimeBin()));
}

TEST_F(JavaEnvironment, NamesTheLibraryAndTheHome) {
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(app.Log().After("environment TARN_JVM_PATH="),
              TextInLog(app.Path(L"jre\\bin\\server\\jvm.dll")));
    EXPECT_EQ(app.Log().After("environment TARN_JVM_HOME="), TextInLog(app.Path(L"jre")));
}

TEST_F(JavaEnvironment, ReplacesVariablesOfAnOuterLaunch) {
    app.environment[L"TARN_JVM_PATH"] = L"outer";
    app.environment[L"TARN_JVM_HOME"] = L"outer";
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(app.Log().After("environment TARN_JVM_HOME="), TextInLog(app.Path(L"jre")));
}

TEST_F(JavaEnvironment, KeepsTheWorkingDirectory) {
    settings.Application(L"Override WorkingDir", L"no");
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(app.Log().After("directory "),
              TextInLog(app.directory.substr(0, app.directory.size() - 1)));
}

TEST_F(JavaEnvironment, ChangesTheWorkingDirectoryOnDemand) {
    settings.Application(L"Override WorkingDir", L"yes");
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(app.Log().After("directory "),
              TextInLog(app.folder().substr(0, app.folder().size() - 1)));
}

TEST_F(JavaEnvironment, LoadsNothingThatIsNotNeeded) {
    app.WriteScript("main = log_modules");
    EXPECT_EQ(Run(), 0);
    ASSERT_TRUE(app.Log().Has("module \"jvm.dll\""));
    for (const char* name : {"gdiplus.dll", "dbghelp.dll", "winmm.dll"}) {
        EXPECT_FALSE(app.Log().Has(std::string("module \"") + name + '"')) << name;
    }
}

}  // namespace
}  // namespace tarn::test
