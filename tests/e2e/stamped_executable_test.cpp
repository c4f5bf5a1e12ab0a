// Executables made by tarn stamp and tarn wrap, as Windows' loader sees them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/windows.h"
#include "tests/support/installed_application.h"
#include "tests/support/paths.h"
#include "tests/support/windows_of_process.h"

namespace tarn::test {
namespace {

class StampedExecutable : public testing::Test {
  protected:
    // Runs the companion program with this command line.
    void Tarn(const std::wstring& words) {
        const std::wstring& launcher = GetPaths().launcher;
        Start start;
        start.program = launcher.substr(0, launcher.rfind(L'\\') + 1) + L"tarn.exe";
        start.commandLine = L"tarn " + words;
        start.directory = app.folder();
        start.errorFile = app.ErrorFile();
        const LaunchedProcess process(start);
        ASSERT_TRUE(process.started());
        ASSERT_EQ(process.ExitCode(), 0);
    }

    void Stamp(const std::wstring& options) {
        Tarn(L"stamp \"" + GetPaths().launcher + L"\" --out \"" + app.Executable() + L"\" " +
             options);
    }

    InstalledApplication app;
};

// The file as a data file: what Windows' functions find in it.
class LoadedFile {
  public:
    explicit LoadedFile(const std::wstring& path)
        : module_(LoadLibraryExW(path.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE)) {}
    ~LoadedFile() {
        if (module_ != nullptr) FreeLibrary(module_);
    }
    LoadedFile(const LoadedFile&) = delete;
    LoadedFile& operator=(const LoadedFile&) = delete;

    std::wstring Text(UINT id) const {
        wchar_t text[200] = {};
        return std::wstring(text, static_cast<std::size_t>(LoadStringW(module_, id, text, 200)));
    }

    std::string Data(const wchar_t* name) const {
        const HRSRC found = FindResourceW(module_, name, MAKEINTRESOURCEW(10));
        if (found == nullptr) return "";
        return std::string(static_cast<const char*>(LockResource(LoadResource(module_, found))),
                           SizeofResource(module_, found));
    }

  private:
    HMODULE module_;
};

TEST_F(StampedExecutable, HasItsTextsAndSettingsAsResources) {
    app.AddFile(L"built in.ini", "[Application]\nFailure Check=Yes\n");
    Stamp(
        L"--settings \"built in.ini\" --set-string 210=\"Keine Hauptklasse\" "
        L"--set-string 900=\"a new one\"");
    const LoadedFile file(app.Executable());
    EXPECT_EQ(file.Text(210), L"Keine Hauptklasse");
    EXPECT_EQ(file.Text(900), L"a new one");
    EXPECT_EQ(file.Text(214), L"Browse for JRE folder");
    EXPECT_EQ(file.Data(L"SETTINGS"), "[Application]\r\nFailure Check=Yes\r\n");
}

TEST_F(StampedExecutable, ShowsItsOwnText) {
    Stamp(L"--set-string 210=\"Keine Hauptklasse\\nin app.ini\"");
    app.WriteSettings(L"[Application]\r\n");
    const auto process = app.Launch();
    EXPECT_EQ(CloseErrorBox(*process), L"Keine Hauptklasse\nin app.ini");
    EXPECT_EQ(process->ExitCode(), -1);
}

TEST_F(StampedExecutable, RunsWithItsEmbeddedSettings) {
    app.AddFile(L"built in.ini",
                "[java runtime environment]\nmain class = \"com.example.BuiltIn\"\nJRE Path=jre\n"
                "Virtual Machine Parameters= -Da=b \n[class path]\nclass path=*.exe\n");
    Stamp(L"--settings \"built in.ini\" --version 3.1");
    app.AddRuntime();
    app.directory = app.folder();
    const auto process = app.Launch(L"one");
    EXPECT_EQ(process->ExitCode(), 0);
    EXPECT_EQ(app.Log().Count("CallStaticVoidMethod(com/example/BuiltIn.main("), 1U);
    EXPECT_THAT(app.Log().Options(), testing::Contains(R"("-Da=b")"));
}

}  // namespace
}  // namespace tarn::test
