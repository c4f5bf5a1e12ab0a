// The layers of the settings: embedded text, main file, additive sections, per-user file.

#include "base/windows.h"
#include "tests/support/fake_jvm_fixture.h"

namespace tarn::test {
namespace {

using SettingsLayers = FakeJvmFixture;

TEST_F(SettingsLayers, AdditiveSectionsAreUsedWhenTheMainOneHasNoValue) {
    settings.Application(L"Cmd", L"");
    settings.Set(L"Application+", L"Cmd", L"added");
    settings.Runtime(L"Main Class", L"");
    // An additional value begins with a space, which makes the class another one here.
    settings.Set(L"Java Runtime Environment+", L"Main Class", L"com.example.Main");
    app.WriteScript("load_and_main = null\nfail FindClass 3");
    EXPECT_EQ(RunWithErrorBox(L"Could not find the main class  com/example/Main.\n"), -1);
}

TEST_F(SettingsLayers, AdditiveSectionsAreIgnoredWhenTheMainOneHasAValue) {
    settings.Application(L"Cmd", L"main");
    settings.Set(L"Application+", L"Cmd", L"added");
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(MainArguments(), "[\"main\"]");
}

TEST_F(SettingsLayers, AdditiveValuesAreNoFlags) {
    // With the space before it, the value is no longer the word.
    settings.Set(L"Application+", L"Application Type", L"service");
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(app.Log().Count("DestroyJavaVM"), 0U);
}

class BuiltInSettings : public FakeJvmFixture {
  protected:
    /// Embeds the text in the executable, as the maker of an application does.
    void BuildIn(std::string text) {
        const HANDLE update = BeginUpdateResourceW(app.Executable().c_str(), FALSE);
        ASSERT_NE(update, nullptr);
        EXPECT_TRUE(UpdateResourceW(update, MAKEINTRESOURCEW(10), L"SETTINGS",
                                    MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), text.data(),
                                    static_cast<DWORD>(text.size())));
        EXPECT_TRUE(EndUpdateResourceW(update, FALSE));
    }
};

TEST_F(BuiltInSettings, AreUsedWithoutAFile) {
    SettingsText text = app.StandardSettings();
    text.Application(L"Cmd", L"built in \u8A66");
    BuildIn("\xEF\xBB\xBF  " + ToUtf8(text.Text()));
    EXPECT_EQ(app.Launch()->ExitCode(), 0);
    EXPECT_EQ(MainArguments(), "[\"built\", \"in\", \"\xE8\xA9\xA6\"]");
}

TEST_F(BuiltInSettings, AreOverriddenByTheFile) {
    BuildIn("[Application]\r\nCmd=built in\r\n");
    settings.Application(L"Cmd", L"file");
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(MainArguments(), "[\"file\"]");
}

TEST_F(BuiltInSettings, ReplaceAnEmptyValueAndAreExtended) {
    BuildIn("[Application]\r\nCmd=built in\r\n[application]\r\nCmd=another\r\n");
    settings.Application(L"Cmd", L"");
    settings.Set(L"Application+", L"Cmd", L"added");
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(MainArguments(), "[\"built\", \"in\", \"added\"]");
}

TEST_F(BuiltInSettings, DoNotNameTheProduct) {
    const std::wstring folder = app.AppDataFolder() + L"\\Name\\Code";
    CreateFolders(folder);
    SettingsText users;
    users.Runtime(L"JRE Path", app.AddRuntime(L"users"));
    WriteFileBytes(folder + L"\\sample.ini", Utf16File(users.Text()));
    BuildIn("[Product Information]\r\nProduct Name=Name\r\nProduct Code=Code\r\n");
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(app.Log().After("environment TARN_JVM_HOME="), TextInLog(app.Path(L"jre")));
}

class PerUserSettings : public FakeJvmFixture {
  protected:
    PerUserSettings() {
        settings.Set(L"Product Information", L"Product Name", L"A/B: C?");
        settings.Set(L"Product Information", L"Product Code", L"1234");
        settings.Runtime(L"JRE Path", app.AddRuntime(L"main"));
        users_.Runtime(L"JRE Path", app.AddRuntime(L"users"));
    }

    void WritePerUserFile(const std::wstring& path) {
        CreateFolders(path.substr(0, path.rfind(L'\\')));
        WriteFileBytes(path, Utf16File(users_.Text()));
    }

    std::string HomeUsed() {
        EXPECT_EQ(Run(), 0);
        return app.Log().After("environment TARN_JVM_HOME=");
    }

    SettingsText users_;
};

TEST_F(PerUserSettings, NameTheRuntimeWhenTheyExist) {
    WritePerUserFile(app.AppDataFolder() + L"\\AB C\\1234\\sample.ini");
    EXPECT_EQ(HomeUsed(), TextInLog(app.Path(L"users")));
}

TEST_F(PerUserSettings, AreNotCreatedByReading) {
    EXPECT_EQ(HomeUsed(), TextInLog(app.Path(L"main")));
    EXPECT_EQ(GetFileAttributesW(app.AppDataFolder().c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(PerUserSettings, ThatAreEmptyHideThePathOfTheMainFile) {
    users_ = SettingsText();
    WritePerUserFile(app.AppDataFolder() + L"\\AB C\\1234\\sample.ini");
    app.AddFile(L"jre64\\bin\\java.dll");
    app.AddRuntime(L"jre64");
    EXPECT_EQ(HomeUsed(), TextInLog(app.Path(L"jre64")));
}

TEST_F(PerUserSettings, AreIgnoredByAService) {
    WritePerUserFile(app.AppDataFolder() + L"\\AB C\\1234\\sample.ini");
    settings.Application(L"Application Type", L"service");
    EXPECT_EQ(HomeUsed(), TextInLog(app.Path(L"main")));
}

TEST_F(PerUserSettings, AreReadForTheRuntimeOnly) {
    users_.Application(L"Cmd", L"not read");
    WritePerUserFile(app.AppDataFolder() + L"\\AB C\\1234\\sample.ini");
    EXPECT_EQ(HomeUsed(), TextInLog(app.Path(L"users")));
    EXPECT_EQ(MainArguments(), "[]");
}

TEST_F(PerUserSettings, AreElsewhereWithoutAppData) {
    WritePerUserFile(app.AppDataFolder() + L"\\AB C\\1234\\sample.ini");
    app.environment[L"APPDATA"] = std::nullopt;
    EXPECT_EQ(HomeUsed(), TextInLog(app.Path(L"main")));
}

TEST_F(PerUserSettings, AreElsewhereWhenAppDataIsTooLong) {
    WritePerUserFile(app.AppDataFolder() + L"\\AB C\\1234\\sample.ini");
    app.environment[L"APPDATA"] = app.AppDataFolder() + Repeated(L"\\.", 130);
    EXPECT_EQ(HomeUsed(), TextInLog(app.Path(L"main")));
}

TEST_F(PerUserSettings, UseTheProductNameOfTheMainSectionOnly) {
    settings.Remove(L"Product Information", L"Product Name");
    settings.Set(L"Product Information+", L"Product Name", L"AB C");
    WritePerUserFile(app.AppDataFolder() + L"\\AB C\\1234\\sample.ini");
    EXPECT_EQ(HomeUsed(), TextInLog(app.Path(L"main")));
}

}  // namespace
}  // namespace tarn::test
