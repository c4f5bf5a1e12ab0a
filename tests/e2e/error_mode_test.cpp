// Windows' message box for a library that cannot be loaded ("hard error") is suppressed for the two
// loads of a launch, and for nothing else.

#include "tests/support/jvm_files.h"
#include "tests/support/pair_product.h"
#include "tests/support/paths.h"
#include "tests/support/splash_fixture.h"

namespace tarn::test {
namespace {

using testing::IsEmpty;

constexpr char kSuppressed[] = ": thread 0x1 process 0x0";
constexpr char kNotSuppressed[] = ": thread 0x0 process 0x0";

class ErrorMode : public SplashFixture {
  protected:
    ErrorMode() {
        ShowTestPicture(L"opaque.png");
        settings.Set(L"Display", L"Preffer Native Splash Screen", L"Yes");
    }

    void AddSplashLibrary() {
        const std::wstring from = GetPaths().fakeSplashes + L'\\';
        for (const wchar_t* name : {L"full\\splashscreen.dll", L"java.dll"}) {
            const std::wstring path = from + name;
            ASSERT_TRUE(CopyFileW(
                path.c_str(),
                (app.Path(L"jre\\bin\\") + path.substr(path.rfind(L'\\') + 1)).c_str(), FALSE));
        }
    }

    std::string ModeOf(const std::string& place) const {
        return app.Log().After("error mode of " + place);
    }
};

TEST_F(ErrorMode, SuppressesHardErrorsDuringTheTwoLoadsOnly) {
    AddSplashLibrary();
    app.WriteScript(
        "on_default_args = log_error_mode\non_create = log_error_mode\nmain = log_error_mode\n");
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(ModeOf("the load of splashscreen.dll"), kSuppressed);
    EXPECT_EQ(ModeOf("the load of jvm.dll"), kSuppressed);
    EXPECT_EQ(ModeOf("on_default_args"), kNotSuppressed);  // the thread that loaded them
    EXPECT_EQ(ModeOf("on_create"), kNotSuppressed);
    EXPECT_EQ(ModeOf("main"), kNotSuppressed);
}

TEST_F(ErrorMode, SuppressesThemForTheJvmWithoutANativeSplash) {
    app.WriteScript("on_default_args = log_error_mode\n");
    EXPECT_EQ(Run(L"-nosplash"), 0);
    EXPECT_EQ(ModeOf("the load of jvm.dll"), kSuppressed);
    EXPECT_EQ(ModeOf("on_default_args"), kNotSuppressed);
}

TEST_F(ErrorMode, IsNotInheritedByTheApplicationsChildren) {
    AddSplashLibrary();
    const PairProduct child(app, settings);
    app.WriteScript("main = run " + ToUtf8(GetPaths().programs) + "\\pair_product.exe\n");
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(child.ErrorMode(), L"0");
}

class CorruptLibrary : public ErrorMode, public testing::WithParamInterface<const char*> {
  protected:
    /// The complete library, broken as the parameter says.
    static std::string Corrupted(const std::wstring& path) {
        const std::string whole = ReadFileBytes(path);
        const std::string how = GetParam();
        if (how == "Text") return "This is no library.\r\n";
        if (how == "Empty") return {};
        if (how == "CutOff") return whole.substr(0, whole.size() / 2);
        if (how == "HeadersOnly") return whole.substr(0, 300);
        return As32Bit(whole);
    }
};

TEST_P(CorruptLibrary, OfTheSplashIsReplacedByTheLaunchersSplashWithoutAMessage) {
    AddSplashLibrary();
    const std::wstring path = app.Path(L"jre\\bin\\splashscreen.dll");
    WriteFileBytes(path, Corrupted(path));
    const auto process = Start();
    EXPECT_NE(WaitForSplash(*process), nullptr);
    EXPECT_TRUE(MainRuns());
    EXPECT_THAT(WindowsOf(process->id(), L"#32770"), IsEmpty());
    EndSuccessfully(*process);
}

TEST_P(CorruptLibrary, OfTheJvmShowsTheLaunchersMessageOnly) {
    const std::wstring path = app.Path(L"jre\\bin\\server\\jvm.dll");
    WriteFileBytes(path, Corrupted(path));
    const auto process = Start(L"-nosplash");
    EXPECT_EQ(CloseErrorBox(*process), LoadFailure(path));
    EXPECT_EQ(process->ExitCode(), -1);
}

INSTANTIATE_TEST_SUITE_P(Library, CorruptLibrary,
                         testing::Values("Text", "Empty", "CutOff", "HeadersOnly", "Of32Bits"),
                         [](const auto& test) { return std::string(test.param); });

}  // namespace
}  // namespace tarn::test
