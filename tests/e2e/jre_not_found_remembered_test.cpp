// What the dialog's choice changes in the settings files.

#include "tests/support/jre_not_found_fixture.h"
#include "tests/support/jvm_files.h"

namespace tarn::test {
namespace {

class JreNotFoundRemembered : public JreNotFoundFixture {
  protected:
    /// Chooses a scripted runtime and returns the launch's exit code. The folder's name is ASCII,
    /// so that the file's bytes do not depend on a code page.
    std::int32_t ChooseRuntime() {
        runtime_ = app.AddRuntime(L"jre");
        app.WriteScript("main = exit 7");
        StartUntilDialog();
        if (dialog == nullptr) return kNoExitCode;
        BrowseTo(runtime_);
        return Confirm();
    }

    std::wstring JrePathIn(const std::wstring& file) const {
        wchar_t value[1024];
        GetPrivateProfileStringW(L"Java Runtime Environment", L"JRE Path", L"(none)", value, 1024,
                                 file.c_str());
        return value;
    }

    std::wstring runtime_;
};

TEST_F(JreNotFoundRemembered, TheFolderIsWrittenToThePerUserFile) {
    const std::wstring mainBefore = settings.Text();
    EXPECT_EQ(ChooseRuntime(), 7);
    EXPECT_EQ(ReadFileBytes(PerUserFile()),
              AnsiFile(L"[Java Runtime Environment]\r\nJRE Path=" + runtime_ + L"\\\r\n"));
    EXPECT_EQ(ReadFileBytes(app.SettingsFile()), Utf16File(mainBefore));
}

TEST_F(JreNotFoundRemembered, OtherContentsOfThePerUserFileAreKept) {
    CreateFolders(PerUserFile().substr(0, PerUserFile().rfind(L'\\')));
    WriteFileBytes(PerUserFile(),
                   "[Other]\r\nA=1\r\n[Java Runtime Environment]\r\nJVM Type=x\r\n"
                   "JRE Path=C:\\gone\r\n[Last]\r\nB=2\r\n");
    EXPECT_EQ(ChooseRuntime(), 7);
    EXPECT_EQ(ReadFileBytes(PerUserFile()),
              AnsiFile(L"[Other]\r\nA=1\r\n[Java Runtime Environment]\r\nJVM Type=x\r\nJRE Path=" +
                       runtime_ + L"\\\r\n[Last]\r\nB=2\r\n"));
}

TEST_F(JreNotFoundRemembered, AFolderOutsideTheCodePageIsWrittenUnchanged) {
    const std::wstring runtime = app.AddRuntime(L"\u65E5\u672C jre");
    app.WriteScript("main = exit 7");
    StartUntilDialog();
    BrowseTo(runtime);
    EXPECT_EQ(Confirm(), 7);
    EXPECT_EQ(JrePathIn(PerUserFile()), runtime + L"\\");
    EXPECT_EQ(app.Launch()->ExitCode(), 7);
}

TEST_F(JreNotFoundRemembered, AServiceWritesItsMainSettings) {
    settings.Application(L"Application Type", L"service");
    EXPECT_EQ(ChooseRuntime(), 7);
    EXPECT_EQ(JrePathIn(app.SettingsFile()), runtime_ + L"\\");
    SettingsText expected = settings;
    expected.Runtime(L"JRE Path", runtime_ + L"\\");
    // In the section, after its existing contents.
    EXPECT_EQ(ReadFileBytes(app.SettingsFile()), Utf16File(expected.Text()));
    EXPECT_EQ(GetFileAttributesW(PerUserFile().c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(JreNotFoundRemembered, ThePairedLaunchersFileIsWrittenToo) {
    settings.Application(L"Pair Product", app.Path(L"bin.32\\pair32.exe"));
    EXPECT_EQ(ChooseRuntime(), 7);
    EXPECT_EQ(JrePathIn(PerUserFile()), runtime_ + L"\\");
    EXPECT_EQ(JrePathIn(PerUserFile(L"pair32")), runtime_ + L"\\");
    EXPECT_EQ(GetFileAttributesW(app.Path(L"bin.32\\pair32.ini").c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(JreNotFoundRemembered, TheMainSettingsOfAServicesPairedLauncherAreWritten) {
    settings.Application(L"Application Type", L"service");
    settings.Application(L"Pair Product", app.Path(L"pair32.exe"));
    EXPECT_EQ(ChooseRuntime(), 7);
    EXPECT_EQ(JrePathIn(app.SettingsFile()), runtime_ + L"\\");
    EXPECT_EQ(JrePathIn(app.Path(L"pair32.ini")), runtime_ + L"\\");
    EXPECT_EQ(GetFileAttributesW(PerUserFile(L"pair32").c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(JreNotFoundRemembered, A32BitLibraryStartsThePairedProgram) {
    app.AddFile(L"jre32\\bin\\client\\jvm.dll", HeadersOf32BitLibrary());
    // A program that accepts the launch's command line and ends with a code of its own.
    settings.Application(L"Pair Product", L"C:\\windows\\system32\\cmd.exe");
    settings.Application(L"Pair Return Code", L"Yes");
    StartUntilDialog(L"/c exit 9");
    BrowseTo(app.Path(L"jre32"));
    EXPECT_EQ(Confirm(), 9);
    EXPECT_EQ(JrePathIn(PerUserFile()), app.Path(L"jre32\\"));
    EXPECT_EQ(JrePathIn(PerUserFile(L"cmd")), app.Path(L"jre32\\"));
}

TEST_F(JreNotFoundRemembered, AFailedWriteIsSilentAndTheLaunchContinues) {
    // A file with the name of the folder.
    WriteFileBytes(app.AppDataFolder() + L"\\" + kProductName, "in the way");
    EXPECT_EQ(ChooseRuntime(), 7);
    EXPECT_EQ(ReadFileBytes(app.AppDataFolder() + L"\\" + kProductName), "in the way");
}

TEST_F(JreNotFoundRemembered, AFileThatAnotherProgramHasOpenIsUnchangedAndTheLaunchContinues) {
    const std::string before = "[Java Runtime Environment]\r\nJRE Path=C:\\gone\r\n";
    CreateFolders(PerUserFile().substr(0, PerUserFile().rfind(L'\\')));
    WriteFileBytes(PerUserFile(), before);
    {
        const UniqueFile held(CreateFileW(PerUserFile().c_str(), GENERIC_READ, 0, nullptr,
                                          OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
        ASSERT_TRUE(held);
        EXPECT_EQ(ChooseRuntime(), 7);
    }
    EXPECT_EQ(ReadFileBytes(PerUserFile()), before);
}

TEST_F(JreNotFoundRemembered, AProductNameOfInvalidCharactersOnlyHasNoFolder) {
    settings.Set(L"Product Information", L"Product Name", L"\\?|><:/*");
    EXPECT_EQ(ChooseRuntime(), 7);
    EXPECT_EQ(JrePathIn(app.AppDataFolder() + L"\\" + kProductCode + L"\\sample.ini"),
              runtime_ + L"\\");
    EXPECT_EQ(app.Launch()->ExitCode(), 7);
}

/// Without a usable APPDATA the path begins at the root of the current drive.
class JreNotFoundWithoutAppData : public JreNotFoundRemembered {
  protected:
    void SetUp() override {
        settings.Set(L"Product Information", L"Product Name", product_);
        RemoveFolder(folder_);
    }
    void TearDown() override { RemoveFolder(folder_); }

    const std::wstring product_ = L"TarnTest" + std::to_wstring(GetCurrentProcessId());
    const std::wstring folder_ = app.directory.substr(0, 2) + L"\\" + product_;
};

TEST_F(JreNotFoundWithoutAppData, WithoutTheVariableTheLaunchContinues) {
    app.environment[L"APPDATA"] = std::nullopt;
    EXPECT_EQ(ChooseRuntime(), 7);
    EXPECT_EQ(JrePathIn(folder_ + L"\\" + kProductCode + L"\\sample.ini"), runtime_ + L"\\");
}

TEST_F(JreNotFoundWithoutAppData, AVariableThatIsTooLongIsIgnored) {
    app.environment[L"APPDATA"] = L"C:\\" + Repeated(L"a", 300);
    EXPECT_EQ(ChooseRuntime(), 7);
    EXPECT_EQ(JrePathIn(folder_ + L"\\" + kProductCode + L"\\sample.ini"), runtime_ + L"\\");
}

}  // namespace
}  // namespace tarn::test
