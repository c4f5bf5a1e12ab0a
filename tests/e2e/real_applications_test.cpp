// Third-party applications, wrapped with "tarn wrap" and started on real runtimes.

#include "tests/support/paths.h"
#include "tests/support/real_runtime_fixture.h"

namespace tarn::test {
namespace {

// A real application on a busy machine unpacks megabytes and draws a whole window.
constexpr std::chrono::milliseconds kLongPatience{120'000};

// Wine has no graphics acceleration on a virtual screen, and the windows would stay black. Debian's
// Wine 10 reports an error instead of the network adapters when a route has a prefix of length 0,
// as every default route has. Java reads the adapters for random numbers, and those for the names
// of temporary files. Its IPv4 code uses another function.
constexpr wchar_t kOnWine[] =
    L"-Dsun.java2d.d3d=false -Dsun.java2d.noddraw=true -Djava.net.preferIPv4Stack=true";

class RealApplication : public testing::Test {
  protected:
    RealApplication() {
        app.environment[L"JAVA_TOOL_OPTIONS"] = std::nullopt;
        app.environment[L"_JAVA_OPTIONS"] = std::nullopt;
        app.environment[L"JDK_JAVA_OPTIONS"] = std::nullopt;
    }

    /// The jar of an application in the cache, of any version.
    static std::wstring Jar(const std::wstring& name, const std::wstring& stem) {
        const std::wstring folder = GetPaths().applications + L'\\' + name + L'\\';
        WIN32_FIND_DATAW found{};
        const UniqueFindHandle search(FindFirstFileW((folder + stem + L"-*.jar").c_str(), &found));
        EXPECT_TRUE(search) << "no application " << ToUtf8(folder + stem)
                            << " (scripts/fetch_applications.py fetches it, TARN_APPLICATIONS "
                            << "names the folder of all)";
        return folder + found.cFileName;
    }

    /// Runs tarn.exe in the test's folder; a failure prints its output.
    void Tarn(const std::wstring& arguments) {
        Start start = app.StartWith(L"tarn " + arguments);
        start.program = GetPaths().companion;
        start.directory = app.folder();
        const LaunchedProcess tarn(start);
        ASSERT_TRUE(tarn.started()) << ToUtf8(start.program);
        EXPECT_EQ(tarn.ExitCode(kLongPatience), 0)
            << ToUtf8(start.commandLine) << '\n'
            << ReadFileBytes(app.OutputFile()) << ReadFileBytes(app.ErrorFile());
    }

    /// Wraps the jar into the folder "out", as out\Demo.exe.
    void Wrap(const std::wstring& jar, const std::wstring& options) {
        Tarn(L"wrap \"" + jar + L"\" --launcher \"" + GetPaths().launcher +
             L"\" --out out --name Demo --vm-parameters \"" + kOnWine +
             L" -Duser.home=.\" --set \"Application/Override WorkingDir=Yes\" " + options);
    }

    static std::wstring OnRuntime(std::string_view version) {
        return L" --set \"Java Runtime Environment/JRE Path=" + RuntimeHome(version) + L'"';
    }

    /// Starts the wrapped application, waits for a visible window whose title has this ending,
    /// closes the window and waits for the end.
    void ExpectWindow(const std::wstring& title) {
        Start start = app.StartWith(L"Demo.exe");
        start.program = app.Path(L"out\\Demo.exe");
        const LaunchedProcess process(start);
        ASSERT_TRUE(process.started());
        HWND window = nullptr;
        std::string titles;
        WaitUntil(
            [&] {
                titles.clear();
                for (HWND each : WindowsOf(process.id())) {
                    if (!IsWindowVisible(each)) continue;
                    const std::wstring text = WindowText(each);
                    titles += '"' + ToUtf8(text) + "\" ";
                    if (text.ends_with(title)) window = each;
                }
                return window != nullptr || process.HasEnded();
            },
            kLongPatience);
        ASSERT_NE(window, nullptr)
            << "its windows: " << titles << '\n'
            << ReadFileBytes(app.OutputFile()) << ReadFileBytes(app.ErrorFile());
        PostMessageW(window, WM_CLOSE, 0, 0);
        EXPECT_EQ(process.ExitCode(kLongPatience), 0);
    }

    InstalledApplication app;
};

TEST_F(RealApplication, ADatabaseManagerRunsFromASingleFile) {
    Wrap(Jar(L"hsqldb", L"hsqldb"),
         L"--single-file --arguments \"--url jdbc:hsqldb:mem:demo --user SA\"" + OnRuntime("21"));
    ExpectWindow(L"HyperSQL Database Manager");
}

TEST_F(RealApplication, ADocumentToolRunsOnTheRuntimeShippedWithIt) {
    Wrap(Jar(L"pdfbox", L"pdfbox-app"),
         L"--arguments debug --runtime \"" + RuntimeHome("25") + L'"');
    Tarn(L"check --strict out\\Demo.ini");
    ExpectWindow(L"Apache PDFBox Debugger");
}

TEST_F(RealApplication, ADiagramToolWithTenJarsOnItsClassPathRuns) {
    Wrap(Jar(L"jgrapht", L"jgrapht-demo"), OnRuntime("11"));
    Tarn(L"check --strict out\\Demo.ini");
    ExpectWindow(L"JGraphT Adapter to JGraphX Demo");
}

TEST_F(RealApplication, ADiagramEditorShowsTheFolderItStartsIn) {
    Wrap(Jar(L"plantuml", L"plantuml-mit"), L"--arguments -gui" + OnRuntime("17"));
    Tarn(L"check --strict out\\Demo.ini");
    ExpectWindow(L"out\\.");
}

}  // namespace
}  // namespace tarn::test
