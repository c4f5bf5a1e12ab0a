// Libraries with the names of system libraries that are planted beside the launcher and in its
// working directory. None of them may be loaded.
//
// Excluded are kernel32, user32, gdi32, advapi32 and msvcrt, which the launcher imports: Windows
// loads those from its list of "KnownDLLs", whatever the search order. Wine has no such list.

#include "tests/support/fake_jvm_fixture.h"
#include "tests/support/jre_not_found_fixture.h"
#include "tests/support/jvm_files.h"
#include "tests/support/pair_product.h"
#include "tests/support/paths.h"
#include "tests/support/splash_fixture.h"
#include "tests/support/test_pictures.h"

namespace tarn::test {
namespace {

constexpr const wchar_t* kNames[] = {
    L"bcrypt",       L"clbcatq",  L"combase",  L"comctl32",      L"comdlg32", L"cryptbase",
    L"cryptsp",      L"dbgcore",  L"dbghelp",  L"dwmapi",        L"gdiplus",  L"imagehlp",
    L"imm32",        L"iphlpapi", L"mpr",      L"msimg32",       L"netapi32", L"ntmarta",
    L"ole32",        L"oleacc",   L"profapi",  L"propsys",       L"psapi",    L"secur32",
    L"setupapi",     L"shell32",  L"shfolder", L"sspicli",       L"urlmon",   L"userenv",
    L"usp10",        L"uxtheme",  L"version",  L"windowscodecs", L"wininet",  L"winmm",
    L"winspool.drv", L"wintrust", L"ws2_32",   L"wsock32",       L"wtsapi32",
};

std::wstring FileName(std::wstring name) {
    return name.find(L'.') == std::wstring::npos ? name + L".dll" : name;
}

class Planted {
  public:
    explicit Planted(InstalledApplication& app) : log_(app.LogFile() + L".planted") {
        const std::wstring library = GetPaths().programs + L"\\planted_library.dll";
        for (const wchar_t* name : kNames) {
            for (const std::wstring& folder : {app.folder(), app.directory}) {
                const std::wstring copy = folder + FileName(name);
                EXPECT_TRUE(CopyFileW(library.c_str(), copy.c_str(), FALSE)) << ToUtf8(copy);
            }
        }
        app.environment[L"PLANTED_LOG"] = log_;
    }

    std::string Loaded() const {
        const std::string bytes = ReadFileBytes(log_);
        return ToUtf8(std::wstring(reinterpret_cast<const wchar_t*>(bytes.data()),
                                   bytes.size() / sizeof(wchar_t)));
    }

  private:
    std::wstring log_;
};

using PlantedLibraries = FakeJvmFixture;

TEST_F(PlantedLibraries, ReportThatTheyAreLoaded) {
    const Planted planted(app);
    app.AddFile(L"jre\\bin\\server\\jvm.dll");
    CopyFileW(app.Path(L"version.dll").c_str(), app.Path(L"jre\\bin\\server\\jvm.dll").c_str(),
              FALSE);
    RunWithErrorBox(L"Windows exception: cannot find CreateJavaVM JNI (errno = 127).\n");
    EXPECT_EQ(planted.Loaded(), ToUtf8(app.Path(L"jre\\bin\\server\\jvm.dll") + L"\n"));
}

TEST_F(PlantedLibraries, AreNotLoadedByALaunch) {
    const Planted planted(app);
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(planted.Loaded(), "");
}

TEST_F(PlantedLibraries, AreNotLoadedByAnErrorBox) {
    const Planted planted(app);
    settings.Runtime(L"Main Class", L"");
    EXPECT_EQ(RunWithErrorBox(L"Main class was not specified in INI file."), -1);
    EXPECT_EQ(planted.Loaded(), "");
}

TEST_F(PlantedLibraries, AreNotLoadedForA32BitRuntime) {
    const Planted planted(app);
    PairProduct pair(app, settings);
    settings.Application(L"Pair Return Code", L"Yes");
    const std::wstring library = app.Path(L"jre\\bin\\server\\jvm.dll");
    WriteFileBytes(library, As32Bit(ReadFileBytes(library)));
    Run();
    EXPECT_TRUE(pair.WasStarted());
    EXPECT_EQ(planted.Loaded(), "");
}

TEST_F(PlantedLibraries, AreNotLoadedByTheExceptionDialog) {
    const Planted planted(app);
    settings.Application(L"Failure Check", L"Yes");
    app.WriteScript("main = throw java/lang/IllegalStateException: boom\n");
    const auto process = Start();
    PressButton(WaitForWindow(*process, L"#32770"), IDOK);
    EXPECT_EQ(process->ExitCode(), 0);
    EXPECT_EQ(planted.Loaded(), "");
}

using PlantedLibrariesSplash = SplashFixture;

TEST_F(PlantedLibrariesSplash, AreNotLoadedByTheSplash) {
    const Planted planted(app);
    ShowTestPicture(L"opaque.png");
    const auto process = Start();
    WaitForSplash(*process);
    EndSuccessfully(*process);
    // Wine's own decoders load this one by its bare name when they first need it, which the
    // launcher cannot influence.
    EXPECT_THAT(planted.Loaded(), testing::AnyOf("", ToUtf8(app.Path(L"propsys.dll") + L"\n")));
}

using PlantedLibrariesJreNotFound = JreNotFoundFixture;

TEST_F(PlantedLibrariesJreNotFound, AreNotLoadedByTheDialogAndTheFolderBrowser) {
    const Planted planted(app);
    const std::wstring runtime = app.AddRuntime();
    StartUntilDialog();
    BrowseTo(runtime);
    EXPECT_EQ(Confirm(), 0);
    EXPECT_EQ(planted.Loaded(), "");
}

}  // namespace
}  // namespace tarn::test
