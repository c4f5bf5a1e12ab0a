// A chosen folder whose name the code page cannot represent, in settings files of 8-bit text.

#include "base/handles.h"
#include "tests/support/jre_not_found_fixture.h"

namespace tarn::test {
namespace {

constexpr char kUserSettings[] =
    "; a comment\r\n[Other]\r\nA=\"1 \"\r\n[Java Runtime Environment]\r\nJRE Path=C:\\gone\r\n";

class JrePathConversion : public JreNotFoundFixture {
  protected:
    JrePathConversion() : runtime_(app.AddRuntime(L"\u65E5\u672C jre")) {
        app.WriteScript("main = exit 7");
    }

    void WritePerUserFile(std::string_view bytes) const {
        CreateFolders(PerUserFile().substr(0, PerUserFile().rfind(L'\\')));
        WriteFileBytes(PerUserFile(), bytes);
    }

    /// Chooses the runtime and returns the exit code of the launch.
    std::int32_t ChooseRuntime() {
        StartUntilDialog();
        if (dialog == nullptr) return kNoExitCode;
        BrowseTo(runtime_);
        return Confirm();
    }

    static std::wstring Value(const std::wstring& file, const wchar_t* section,
                              const wchar_t* key) {
        wchar_t value[1024];
        GetPrivateProfileStringW(section, key, L"(none)", value, 1024, file.c_str());
        return value;
    }
    static std::wstring JrePathIn(const std::wstring& file) {
        return Value(file, L"Java Runtime Environment", L"JRE Path");
    }

    /// The number of files in a folder, without "." and "..".
    static int CountFiles(const std::wstring& folder) {
        int count = 0;
        WIN32_FIND_DATAW found;
        const UniqueFindHandle search(FindFirstFileW((folder + L"\\*").c_str(), &found));
        if (!search) return 0;
        do {
            if (found.cFileName[0] != L'.') ++count;
        } while (FindNextFileW(search.get(), &found));
        return count;
    }
    std::wstring PerUserFolder() const {
        return PerUserFile().substr(0, PerUserFile().rfind(L'\\'));
    }

    std::wstring runtime_;
};

TEST_F(JrePathConversion, TheNextStartFindsTheFolderInThePerUserFile) {
    WritePerUserFile(kUserSettings);
    EXPECT_EQ(ChooseRuntime(), 7);
    EXPECT_EQ(JrePathIn(PerUserFile()), runtime_ + L"\\");
    EXPECT_EQ(app.Launch()->ExitCode(), 7);
}

TEST_F(JrePathConversion, ThePerUserFileKeepsItsOtherContents) {
    WritePerUserFile(kUserSettings);
    EXPECT_EQ(ChooseRuntime(), 7);
    EXPECT_EQ(ReadFileBytes(PerUserFile()),
              Utf16File(L"; a comment\r\n[Other]\r\nA=\"1 \"\r\n[Java Runtime Environment]\r\n"
                        L"JRE Path=" +
                        runtime_ + L"\\\r\n"));
    EXPECT_EQ(Value(PerUserFile(), L"Other", L"A"), L"1 ");
    EXPECT_EQ(CountFiles(PerUserFolder()), 1);
}

TEST_F(JrePathConversion, AServicesMainSettingsKeepTheirOtherValues) {
    settings.Application(L"Application Type", L"service");
    const std::wstring text = settings.Text();
    // ASCII and one letter of the code page.
    app.WriteSettingsBytes(std::string(text.begin(), text.end()) + "[Other]\r\nA=\xE9\r\n");
    const std::wstring before = Value(app.SettingsFile(), L"Other", L"A");
    process = app.Launch();
    dialog = WaitForWindow(*process, L"#32770");
    ASSERT_NE(dialog, nullptr);
    BrowseTo(runtime_);
    EXPECT_EQ(Confirm(), 7);
    EXPECT_EQ(JrePathIn(app.SettingsFile()), runtime_ + L"\\");
    EXPECT_EQ(Value(app.SettingsFile(), L"Other", L"A"), before);
    EXPECT_EQ(Value(app.SettingsFile(), L"Application", L"Application Type"), L"service");
    EXPECT_EQ(app.Launch()->ExitCode(), 7);
}

TEST_F(JrePathConversion, ThePairedLaunchersFileIsConvertedToo) {
    settings.Application(L"Pair Product", app.Path(L"pair32.exe"));
    WritePerUserFile(kUserSettings);
    WriteFileBytes(PerUserFile(L"pair32"), kUserSettings);
    EXPECT_EQ(ChooseRuntime(), 7);
    EXPECT_EQ(JrePathIn(PerUserFile(L"pair32")), runtime_ + L"\\");
    EXPECT_EQ(Value(PerUserFile(L"pair32"), L"Other", L"A"), L"1 ");
    EXPECT_EQ(CountFiles(PerUserFolder()), 2);
}

TEST_F(JrePathConversion, AFileThatAnotherProgramHasOpenIsNotChanged) {
    WritePerUserFile(kUserSettings);
    {
        const UniqueFile other(CreateFileW(PerUserFile().c_str(), GENERIC_READ, 0, nullptr,
                                           OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
        ASSERT_TRUE(other);
        EXPECT_EQ(ChooseRuntime(), 7);
    }
    EXPECT_EQ(ReadFileBytes(PerUserFile()), kUserSettings);
    EXPECT_EQ(CountFiles(PerUserFolder()), 1);
}

TEST_F(JrePathConversion, AReadOnlyFileIsNotChanged) {
    WritePerUserFile(kUserSettings);
    SetFileAttributesW(PerUserFile().c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(ChooseRuntime(), 7);
    EXPECT_EQ(ReadFileBytes(PerUserFile()), kUserSettings);
    EXPECT_EQ(CountFiles(PerUserFolder()), 1);
    SetFileAttributesW(PerUserFile().c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(JrePathConversion, ARelativePairProductCreatesNoFileInTheCurrentDirectory) {
    const std::wstring name = L"tarn" + std::to_wstring(GetCurrentProcessId());
    settings.Application(L"Application Type", L"service");
    settings.Application(L"Pair Product", name + L".exe");
    app.directory = app.AddFolder(L"work");
    EXPECT_EQ(ChooseRuntime(), 7);
    EXPECT_EQ(CountFiles(app.directory), 0);
    EXPECT_EQ(JrePathIn(app.SettingsFile()), runtime_ + L"\\");
    // The folder in which the profile functions search for a name without one.
    wchar_t windows[MAX_PATH];
    GetWindowsDirectoryW(windows, MAX_PATH);
    DeleteFileW((std::wstring(windows) + L"\\" + name + L".ini").c_str());
}

}  // namespace
}  // namespace tarn::test
