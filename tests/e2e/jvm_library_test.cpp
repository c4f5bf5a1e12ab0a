// The choice of jvm.dll, and libraries that cannot be used.

#include "tests/support/fake_jvm_fixture.h"
#include "tests/support/jvm_files.h"

namespace tarn::test {
namespace {

using testing::IsEmpty;

constexpr wchar_t kNoEntryPoint[] =
    L"Windows exception: cannot find CreateJavaVM JNI (errno = 127).\n";

class JvmLibrary : public FakeJvmFixture {
  protected:
    std::wstring JvmPath() const { return app.Path(L"jre\\bin\\server\\jvm.dll"); }

    void ExpectLoadFailure() { EXPECT_EQ(RunWithErrorBox(LoadFailure(JvmPath())), -1); }

    /// The path of jvm.dll in the application's environment.
    std::string Chosen() {
        EXPECT_EQ(Run(), 0);
        return app.Log().After("environment TARN_JVM_PATH=");
    }
};

TEST_F(JvmLibrary, ThatIsATextCannotBeLoaded) {
    WriteFileBytes(JvmPath(), "This is no library.\r\n");
    ExpectLoadFailure();
}

TEST_F(JvmLibrary, ThatIsEmptyCannotBeLoaded) {
    WriteFileBytes(JvmPath(), "");
    ExpectLoadFailure();
}

TEST_F(JvmLibrary, ThatIsTruncatedCannotBeLoaded) {
    const std::string whole = ReadFileBytes(JvmPath());
    ASSERT_GT(whole.size(), 1000U);
    WriteFileBytes(JvmPath(), std::string_view(whole).substr(0, 300));
    ExpectLoadFailure();
}

TEST_F(JvmLibrary, Of32BitsCannotBeLoaded) {
    WriteFileBytes(JvmPath(), As32Bit(ReadFileBytes(JvmPath())));
    ExpectLoadFailure();
}

TEST_F(JvmLibrary, ThatIsAFolderCannotBeLoaded) {
    DeleteFileW(JvmPath().c_str());
    app.AddFolder(L"jre\\bin\\server\\jvm.dll");
    ExpectLoadFailure();
}

TEST_F(JvmLibrary, WithoutJniCreateJavaVmIsReported) {
    app.AddRuntime(L"jre", kJvmWithoutCreate);
    EXPECT_EQ(RunWithErrorBox(kNoEntryPoint), -1);
    EXPECT_EQ(app.Log().Count("JNI_"), 0U);
}

TEST_F(JvmLibrary, WithoutJniGetDefaultJavaVmInitArgsIsReported) {
    app.AddRuntime(L"jre", kJvmWithoutDefaults);
    EXPECT_EQ(RunWithErrorBox(kNoEntryPoint), -1);
    EXPECT_EQ(app.Log().Count("JNI_"), 0U);
}

TEST_F(JvmLibrary, FailuresPrecedeTheClassPath) {
    settings.Remove(L"Class Path", L"Class Path");
    app.AddRuntime(L"jre", kJvmWithoutCreate);
    EXPECT_EQ(RunWithErrorBox(kNoEntryPoint), -1);
}

TEST_F(JvmLibrary, OfAClientIsPreferredByDefault) {
    app.AddRuntime(L"jre", kFullJvm, L"bin\\client");
    EXPECT_EQ(Chosen(), TextInLog(app.Path(L"jre\\bin\\client\\jvm.dll")));
}

TEST_F(JvmLibrary, OfAServerIsChosenByTheJvmType) {
    app.AddRuntime(L"jre", kFullJvm, L"bin\\client");
    for (const wchar_t* word : {L"server", L"favor_server"}) {
        DeleteFileW(app.LogFile().c_str());
        settings.Runtime(L"JVM Type", word);
        EXPECT_EQ(Chosen(), TextInLog(JvmPath()));
    }
}

TEST_F(JvmLibrary, TheJvmTypeIsCaseSensitive) {
    app.AddRuntime(L"jre", kFullJvm, L"bin\\client");
    settings.Runtime(L"JVM Type", L"Server");
    EXPECT_EQ(Chosen(), TextInLog(app.Path(L"jre\\bin\\client\\jvm.dll")));
}

TEST_F(JvmLibrary, OfOlderRuntimesIsFound) {
    for (const wchar_t* place : {L"bin\\classic", L"bin\\hotspot", L"bin\\jrockit"}) {
        const std::wstring home =
            app.AddRuntime(std::wstring(L"old ") + (place + 4), kFullJvm, place);
        DeleteFileW(app.LogFile().c_str());
        settings.Runtime(L"JRE Path", home);
        EXPECT_EQ(Chosen(), TextInLog(home + L'\\' + place + L"\\jvm.dll"));
    }
}

TEST_F(JvmLibrary, OfAHomeWithATrailingBackslashGetsNoSecondOne) {
    settings.Runtime(L"JRE Path", app.Path(L"jre\\"));
    EXPECT_EQ(Chosen(), TextInLog(JvmPath()));
}

TEST_F(JvmLibrary, OfARelativeHomeIsFoundFromTheWorkingDirectory) {
    settings.Runtime(L"JRE Path", L"jre");
    app.directory = app.folder();
    EXPECT_EQ(Chosen(), TextInLog(L"jre\\bin\\server\\jvm.dll"));
}

TEST_F(JvmLibrary, OfARelativeHomeIsFoundFromTheLaunchersFolderOnDemand) {
    settings.Runtime(L"JRE Path", L"jre");
    settings.Application(L"Override WorkingDir", L"YES");
    EXPECT_EQ(Chosen(), TextInLog(L"jre\\bin\\server\\jvm.dll"));
    EXPECT_EQ(app.Log().After("directory "),
              TextInLog(app.Path(L"").substr(0, app.folder().size() - 1)));
}

class ShippedLibrary : public JvmLibrary {
  protected:
    ShippedLibrary() { settings.Remove(L"Java Runtime Environment", L"JRE Path"); }
};

TEST_F(ShippedLibrary, MayBeInTheLaunchersFolder) {
    app.AddFile(L"bin\\java.dll");
    app.AddRuntime(L".");
    EXPECT_EQ(Chosen(), TextInLog(app.Path(L"bin\\server\\jvm.dll")));
}

TEST_F(ShippedLibrary, MayBeInASubfolder) {
    app.AddFile(L"jre64\\bin\\java.dll");
    app.AddRuntime(L"jre64");
    EXPECT_EQ(Chosen(), TextInLog(app.Path(L"jre64\\bin\\server\\jvm.dll")));
}

TEST_F(ShippedLibrary, IsOtherwiseSearchedInTheWorkingDirectory) {
    app.directory = app.AddRuntime(L"elsewhere", kFullJvm, L"bin\\client");
    EXPECT_EQ(Chosen(), TextInLog(L"bin\\client\\jvm.dll"));
}

class UnusableHome : public ShippedLibrary, public testing::WithParamInterface<const wchar_t*> {
  protected:
    UnusableHome() {
        app.AddFile(L"jre64\\bin\\java.dll");
        app.AddRuntime(L"jre64");
    }
};

TEST_P(UnusableHome, IsSkippedForTheShippedRuntime) {
    app.AddFile(L"a file", "x");
    const std::wstring home = GetParam();
    settings.Runtime(L"JRE Path", home.starts_with(L"~") ? app.Path(home.substr(1)) : home);
    EXPECT_EQ(Chosen(), TextInLog(app.Path(L"jre64\\bin\\server\\jvm.dll")));
}

INSTANTIATE_TEST_SUITE_P(
    All, UnusableHome,
    testing::Values(
        L"C:\\no such folder", L"~a file", L"~jre64\\bin", L"%windir%", L"\\", L"*",
        L"C:\\a name of three hundred characters 3333333333333333333333333333333333333333"
        L"33333333333333333333333333333333333333333333333333333333333333333333333333333333"
        L"33333333333333333333333333333333333333333333333333333333333333333333333333333333"
        L"33333333333333333333333333333333333333333333333333333333333333"));

TEST_F(JvmLibrary, WithALongPathIsReportedCompletely) {
    // Below folders whose path is longer than the old limit of 260.
    std::wstring home = L"\\\\?\\" + app.Path(L"long");
    CreateDirectoryW(home.c_str(), nullptr);
    while (home.size() < 300) {
        home += L"\\" + Repeated(L"f", 40);
        ASSERT_TRUE(CreateDirectoryW(home.c_str(), nullptr));
    }
    for (const wchar_t* part : {L"\\bin", L"\\bin\\client"}) {
        ASSERT_TRUE(CreateDirectoryW((home + part).c_str(), nullptr));
    }
    WriteFileBytes(home + L"\\bin\\client\\jvm.dll", "text");
    settings.Runtime(L"JRE Path", home);
    EXPECT_EQ(RunWithErrorBox(LoadFailure(home + L"\\bin\\client\\jvm.dll")), -1);
}

}  // namespace
}  // namespace tarn::test
