// A launch with the runtime's splash library, a scripted splashscreen.dll.

#include <algorithm>

#include "tests/support/hook_log.h"
#include "tests/support/paths.h"
#include "tests/support/splash_fixture.h"

namespace tarn::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A Windows 7 without the update for the search flags rejects them as an invalid parameter.
constexpr wchar_t kWithoutSearchFlags[] = L"LoadLibraryExW:1:87";

class NativeSplashLaunch : public SplashFixture {
  protected:
    NativeSplashLaunch() {
        ShowPicture(L"picture.png");
        settings.Set(L"Display", L"Preffer Native Splash Screen", L"Yes");
    }

    // Copies a variant of the library, and the java.dll that it needs, to the runtime's folder.
    void AddLibrary(const std::wstring& variant) {
        const std::wstring from = GetPaths().fakeSplashes + L'\\';
        const std::wstring bin = app.Path(L"jre\\bin\\");
        ASSERT_TRUE(CopyFileW((from + variant + L"\\splashscreen.dll").c_str(),
                              (bin + L"splashscreen.dll").c_str(), FALSE));
        ASSERT_TRUE(CopyFileW((from + L"java.dll").c_str(), (bin + L"java.dll").c_str(), FALSE));
    }

    void MoveDependencyToSystemPath() {
        const std::wstring java = app.Path(L"jre\\bin\\java.dll");
        const std::wstring moved = app.AddFile(L"native\\java.dll");
        ASSERT_TRUE(MoveFileExW(java.c_str(), moved.c_str(), MOVEFILE_REPLACE_EXISTING));
        settings.Runtime(L"System Path", app.Path(L"native"));
    }

    std::int32_t RunWithoutSearchFlags() {
        LetMainEnd();
        app.WriteSettings(settings);
        const std::int32_t code =
            StartHooked(app, kWithoutSearchFlags)->ExitCode().value_or(kNoExitCode);
        // Both failures occurred in the intended calls.
        std::vector<std::string> loads;
        for (const HookedCall& call : ReadHookLog(HookLogFile(app))) {
            if (call.function == "LoadLibraryExW")
                loads.push_back(call.function + (call.failed ? " failed" : ""));
        }
        // The launcher's own splash loads a library afterwards.
        loads.resize(std::min(loads.size(), std::size_t{2}));
        EXPECT_THAT(loads, ElementsAre("LoadLibraryExW failed", "LoadLibraryExW"));
        return code;
    }

    std::vector<std::string> SplashCalls() const {
        std::vector<std::string> calls;
        for (const std::string& text : app.Log().Texts())
            if (text.starts_with("Splash")) calls.push_back(text.substr(0, text.find(" java")));
        return calls;
    }

    // The launcher's own window while `main` runs.
    std::size_t LauncherSplashes(const LaunchedProcess& process) {
        EXPECT_TRUE(MainRuns());
        return SplashesOf(process);
    }
};

TEST_F(NativeSplashLaunch, IsCalledInOrderBeforeTheJvmIsCreated) {
    AddLibrary(L"full");
    const auto process = Start();
    EXPECT_EQ(LauncherSplashes(*process), 0U);
    EXPECT_THAT(SplashCalls(), ElementsAre("SplashInit()", R"(SplashLoadFile("picture.png"))",
                                           R"(SplashSetFileJarName("picture.png", ""))"));
    EXPECT_EQ(app.Log().Count("JNI_CreateJavaVM("), 1U);
    EndSuccessfully(*process);

    std::vector<std::string> order;
    for (const std::string& text : app.Log().Texts())
        for (const char* const start : {"SplashInit", "SplashSetFileJarName", "JNI_CreateJavaVM(",
                                        "DetachCurrentThread", "SplashClose"})
            if (text.starts_with(start)) order.emplace_back(start);
    EXPECT_THAT(order, ElementsAre("SplashInit", "SplashSetFileJarName", "JNI_CreateJavaVM(",
                                   "DetachCurrentThread", "SplashClose"));
}

TEST_F(NativeSplashLaunch, RunsOnTheMainThread) {
    AddLibrary(L"full");
    const auto process = Start();
    EXPECT_TRUE(MainRuns());
    EXPECT_EQ(app.Log().After("SplashInit() java 1 thread "), std::to_string(process->threadId()));
    EndSuccessfully(*process);
}

TEST_F(NativeSplashLaunch, RestoresTheLibrarySearchPath) {
    AddLibrary(L"full");
    app.WriteScript(WaitInMain() + "main = log_modules\n");
    const auto process = Start();
    EXPECT_TRUE(MainRuns());
    EndSuccessfully(*process);
    EXPECT_EQ(app.Log().Count("module \"jvm.dll\""), 1U);
    EXPECT_EQ(app.Log().Count("jvm.dll loaded"), 1U);
    EXPECT_FALSE(app.Log().Has("module \"gdiplus.dll\""));
}

TEST_F(NativeSplashLaunch, HappensForYesOnlyInAnyCase) {
    AddLibrary(L"full");
    LetMainEnd();
    for (const wchar_t* value : {L"Yes", L"YES", L"yes", L"true", L"1", L"yes1", L""}) {
        DeleteFileW(app.LogFile().c_str());
        settings.Set(L"Display", L"Preffer Native Splash Screen", value);
        EXPECT_EQ(Run(), 0);
        const bool isYes = _wcsicmp(value, L"yes") == 0;
        EXPECT_EQ(app.Log().Count("SplashInit"), isYes ? 1U : 0U) << value;
        EXPECT_EQ(app.Log().Count("SplashClose"), isYes ? 1U : 0U) << value;
    }
}

TEST_F(NativeSplashLaunch, IsSuppressedWithTheSplash) {
    AddLibrary(L"full");
    LetMainEnd();
    EXPECT_EQ(Run(L"-nosplash"), 0);
    EXPECT_THAT(SplashCalls(), IsEmpty());
    ShowPicture(L"");
    EXPECT_EQ(Run(), 0);
    EXPECT_THAT(SplashCalls(), IsEmpty());
}

TEST_F(NativeSplashLaunch, ConvertsTheNameToTheCodePage) {
    AddLibrary(L"full");
    LetMainEnd();
    ShowPicture(L"d\u00E9j\u00E0 \u4E2D.png");
    EXPECT_EQ(Run(), 0);
    // Windows-1252, which lacks the last letter.
    const char* const ansi = R"("d\xE9j\xE0 ?.png")";
    EXPECT_EQ(app.Log().After("SplashLoadFile("), std::string(ansi) + ")");
    EXPECT_EQ(app.Log().After("SplashSetFileJarName("), std::string(ansi) + ", \"\")");
}

TEST_F(NativeSplashLaunch, DoesNotReplaceALetterByASimilarOne) {
    AddLibrary(L"full");
    LetMainEnd();
    ShowPicture(L"\u0101-\u2260-\u56FE.png");
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(app.Log().After("SplashLoadFile("), R"("?-?-?.png"))");
}

TEST_F(NativeSplashLaunch, ReceivesNamesOfAnyLength) {
    AddLibrary(L"full");
    LetMainEnd();
    // Around the first size of the buffer for a setting, and far beyond it.
    for (const std::size_t length : {std::size_t{254}, std::size_t{255}, std::size_t{256},
                                     std::size_t{511}, std::size_t{5'000}}) {
        DeleteFileW(app.LogFile().c_str());
        ShowPicture(std::wstring(length - 4, L'p') + L".png");
        EXPECT_EQ(Run(), 0);
        EXPECT_EQ(app.Log().After("SplashLoadFile("),
                  '"' + std::string(length - 4, 'p') + ".png\")");
    }
}

TEST_F(NativeSplashLaunch, IsClosedOnceWhenTheLaunchFails) {
    AddLibrary(L"full");
    app.WriteScript("create = -1\n");
    const auto process = Start();
    // Boxes have no owner in this mode: the splash is not the launcher's.
    EXPECT_THAT(CloseErrorBox(*process), testing::HasSubstr(L"failed to create the Java VM"));
    EXPECT_EQ(process->ExitCode(), -1);
    EXPECT_EQ(app.Log().Count("SplashClose"), 1U);
}

TEST_F(NativeSplashLaunch, IsNotClosedWhenTheApplicationExits) {
    AddLibrary(L"full");
    app.WriteScript("main = exit 5\n");
    EXPECT_EQ(Run(), 5);
    EXPECT_EQ(app.Log().Count("SplashClose"), 0U);
}

TEST_F(NativeSplashLaunch, NeedsNoCloseFunction) {
    AddLibrary(L"without_close");
    const auto process = Start();
    EXPECT_EQ(LauncherSplashes(*process), 0U);
    EndSuccessfully(*process);
    EXPECT_EQ(app.Log().Count("SplashInit"), 1U);
    EXPECT_EQ(app.Log().Count("SplashClose"), 0U);
}

class IncompleteNativeSplash : public NativeSplashLaunch,
                               public testing::WithParamInterface<const wchar_t*> {};
INSTANTIATE_TEST_SUITE_P(Library, IncompleteNativeSplash,
                         testing::Values(L"without_init", L"without_load_file",
                                         L"without_set_name"));

TEST_P(IncompleteNativeSplash, IsReplacedByTheLaunchersWindowAndClosedNevertheless) {
    AddLibrary(GetParam());
    ShowTestPicture(L"opaque.png");
    const auto process = Start();
    EXPECT_NE(WaitForSplash(*process), nullptr);
    EXPECT_TRUE(MainRuns());
    EXPECT_THAT(SplashCalls(), IsEmpty());
    EndSuccessfully(*process);
    EXPECT_THAT(SplashCalls(), ElementsAre("SplashClose()"));
}

TEST_F(NativeSplashLaunch, FallsBackToTheLaunchersWindowWithoutALibrary) {
    ShowTestPicture(L"opaque.png");
    const auto process = Start();
    EXPECT_NE(WaitForSplash(*process), nullptr);
    EndSuccessfully(*process);
}

TEST_F(NativeSplashLaunch, FallsBackWhenTheFileIsNotALibrary) {
    app.AddFile(L"jre\\bin\\splashscreen.dll", "no library");
    ShowTestPicture(L"opaque.png");
    const auto process = Start();
    EXPECT_NE(WaitForSplash(*process), nullptr);
    EXPECT_TRUE(WindowsOf(process->id(), L"#32770").empty());
    EndSuccessfully(*process);
}

TEST_F(NativeSplashLaunch, FindsALibraryInASystemPathFolder) {
    AddLibrary(L"full");
    MoveDependencyToSystemPath();
    LetMainEnd();
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(app.Log().Count("SplashInit() java 1"), 1U);
    EXPECT_EQ(app.Log().Count("jvm.dll loaded"), 1U);
}

TEST_F(NativeSplashLaunch, FindsItsDependenciesOnAWindowsWithoutSearchFlags) {
    AddLibrary(L"full");
    EXPECT_EQ(RunWithoutSearchFlags(), 0);
    EXPECT_EQ(app.Log().Count("SplashInit() java 1"), 1U);
    EXPECT_EQ(app.Log().Count("jvm.dll loaded"), 1U);
}

TEST_F(NativeSplashLaunch, FindsASystemPathFolderOnAWindowsWithoutSearchFlags) {
    AddLibrary(L"full");
    MoveDependencyToSystemPath();
    EXPECT_EQ(RunWithoutSearchFlags(), 0);
    EXPECT_EQ(app.Log().Count("SplashInit() java 1"), 1U);
}

TEST_F(NativeSplashLaunch, LoadsNoDependencyFromTheCurrentDirectory) {
    AddLibrary(L"full");
    ASSERT_TRUE(MoveFileW(app.Path(L"jre\\bin\\java.dll").c_str(), app.Path(L"java.dll").c_str()));
    settings.Application(L"Override WorkingDir", L"Yes");
    LetMainEnd();
    EXPECT_EQ(RunWithoutSearchFlags(), 0);
    EXPECT_THAT(SplashCalls(), IsEmpty());
}

TEST_F(NativeSplashLaunch, FallsBackWhenADependencyIsMissing) {
    AddLibrary(L"full");
    ASSERT_TRUE(DeleteFileW(app.Path(L"jre\\bin\\java.dll").c_str()));
    ShowTestPicture(L"opaque.png");
    const auto process = Start();
    EXPECT_NE(WaitForSplash(*process), nullptr);
    EXPECT_THAT(SplashCalls(), IsEmpty());
    EndSuccessfully(*process);
    EXPECT_THAT(SplashCalls(), IsEmpty());
}

}  // namespace
}  // namespace tarn::test
