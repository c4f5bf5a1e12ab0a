// Hostile environments: paths beyond the old limit, read-only files, files that every user can
// write, user names in any script.

#include "base/windows.h"

#include <aclapi.h>

#include "tests/support/fake_jvm_fixture.h"
#include "tests/support/jre_not_found_fixture.h"

namespace tarn::test {
namespace {

/// A path with that many characters, which does not exist.
std::wstring PathOf(std::size_t length) {
    const std::wstring start = L"C:\\no such folder\\";
    return start + Repeated(L"p", length - start.size());
}

/// Settings that contain a path; with an invalid one the launch continues without it.
struct PathSetting {
    const wchar_t* section;
    const wchar_t* key;
};

class LongPath : public FakeJvmFixture, public testing::WithParamInterface<std::size_t> {
  protected:
    // Other tests cover the effect of a missing path; here the launch only has to end normally.
    // Some of the settings make it ask for a runtime.
    std::int32_t RunAndCancel() {
        const auto process = Start();
        WaitUntil([&] {
            for (const HWND each : WindowsOf(process->id(), L"#32770")) {
                if (IsWindowVisible(each)) PressButton(each, IDCANCEL);
            }
            return process->HasEnded();
        });
        return process->ExitCode().value_or(kNoExitCode);
    }
};

TEST_P(LongPath, OfASettingDoesNotPreventMain) {
    constexpr PathSetting kSettings[] = {
        {L"Display", L"Splash Screen"},
        {L"Application", L"Output File"},
        {L"Application", L"Error File"},
        {L"Application", L"Pair Product"},
        {L"Java Runtime Environment", L"Library Path"},
        {L"Class Path", L"Class Path"},
        {L"Product Information", L"Product Name"},
        {L"Product Information", L"Product Code"},
    };
    for (const PathSetting& each : kSettings) {
        SettingsText changed = settings;
        changed.Set(each.section, each.key, PathOf(GetParam()));
        app.WriteSettings(changed);
        DeleteFileW(app.LogFile().c_str());
        EXPECT_EQ(app.Launch()->ExitCode(), 0) << ToUtf8(each.key);
        EXPECT_EQ(MainArguments(), "[]") << ToUtf8(each.key);
    }
}

TEST_P(LongPath, InSystemPathReachesTheJvm) {
    settings.Runtime(L"System Path", PathOf(GetParam()));
    EXPECT_EQ(Run(), 0);
    EXPECT_THAT(app.Log().After("environment Path="),
                testing::StartsWith(R"("C:\\no such folder\\pppp)"));
}

TEST_P(LongPath, WithoutARuntimeMakesTheLauncherAskForOne) {
    settings.Runtime(L"JRE Path", PathOf(GetParam())).Runtime(L"JVM Source", L"none");
    EXPECT_EQ(RunAndCancel(), -1);
    EXPECT_EQ(MainArguments(), "");
}

using LongRuntimePath = LongPath;

TEST_P(LongRuntimePath, RunsUpToTheOldLimit) {
    // The path of jvm.dll has that length.
    constexpr wchar_t kBelow[] = L"\\bin\\client\\jvm.dll";
    const std::size_t homeLength = GetParam() - std::wstring_view(kBelow).size();
    std::wstring home = app.Path(L"r");
    while (homeLength - home.size() > 60) home += L'\\' + Repeated(L"r", 49);
    home += L'\\' + Repeated(L"r", homeLength - home.size() - 1);
    ASSERT_EQ(home.size(), homeLength);
    for (std::size_t at = app.folder().size(); at != std::wstring::npos;) {
        at = home.find(L'\\', at + 1);
        CreateDirectoryW((L"\\\\?\\" + home.substr(0, at)).c_str(), nullptr);
    }
    CreateDirectoryW((L"\\\\?\\" + home + L"\\bin").c_str(), nullptr);
    CreateDirectoryW((L"\\\\?\\" + home + L"\\bin\\client").c_str(), nullptr);
    ASSERT_TRUE(CopyFileW(app.Path(L"jre\\bin\\server\\jvm.dll").c_str(),
                          (L"\\\\?\\" + home + kBelow).c_str(), FALSE));
    settings.Runtime(L"JRE Path", home).Runtime(L"JVM Source", L"none");
    const std::int32_t code = RunAndCancel();
    if (GetParam() < MAX_PATH) {
        EXPECT_EQ(code, 0);
        EXPECT_EQ(MainArguments(), "[]");
    } else {
        // Wine has no such limit; Windows reports that the file does not exist.
        EXPECT_THAT(code, testing::AnyOf(0, -1));
        EXPECT_EQ(code == 0, MainArguments() == "[]");
    }
    RemoveFolder(L"\\\\?\\" + app.Path(L"r"));
}

INSTANTIATE_TEST_SUITE_P(Characters, LongPath, testing::Values(259, 260, 261, 32'000));
// No file system supports the longest one.
INSTANTIATE_TEST_SUITE_P(Characters, LongRuntimePath, testing::Values(259, 260, 261));

using OpenToAll = FakeJvmFixture;

TEST_F(OpenToAll, ASettingsFileThatEveryoneCanWriteIsReadNormally) {
    app.WriteSettings(settings);
    std::wstring file = app.SettingsFile();
    // A null list grants full access to everyone.
    EXPECT_EQ(SetNamedSecurityInfoW(file.data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr,
                                    nullptr, nullptr, nullptr),
              static_cast<DWORD>(ERROR_SUCCESS));
    EXPECT_EQ(app.Launch(L"a")->ExitCode(), 0);
    EXPECT_EQ(MainArguments(), R"(["a"])");
}

TEST_F(OpenToAll, AReadOnlyFolderDoesNotPreventTheLaunch) {
    app.WriteSettings(settings);
    for (const std::wstring& each : {app.SettingsFile(), app.Executable(), app.folder()}) {
        SetFileAttributesW(each.c_str(), FILE_ATTRIBUTE_READONLY);
    }
    EXPECT_EQ(app.Launch(L"a")->ExitCode(), 0);
    EXPECT_EQ(MainArguments(), R"(["a"])");
    for (const std::wstring& each : {app.SettingsFile(), app.Executable(), app.folder()}) {
        SetFileAttributesW(each.c_str(), FILE_ATTRIBUTE_NORMAL);
    }
}

/// The user names that APPDATA contains.
class UserName : public JreNotFoundFixture, public testing::WithParamInterface<const wchar_t*> {
  protected:
    UserName() {
        folder_ = app.AppDataFolder() + L'\\' + GetParam();
        CreateFolders(folder_);
        app.environment[L"APPDATA"] = folder_;
    }

    std::wstring RememberedFile() const {
        return folder_ + L'\\' + kProductName + L'\\' + kProductCode + L"\\sample.ini";
    }

    std::wstring folder_;
};

TEST_P(UserName, DoesNotPreventRememberingARuntime) {
    const std::wstring runtime = app.AddRuntime();
    app.WriteScript("main = exit 7");
    StartUntilDialog();
    BrowseTo(runtime);
    EXPECT_EQ(Confirm(), 7);
    EXPECT_NE(GetFileAttributesW(RememberedFile().c_str()), INVALID_FILE_ATTRIBUTES);
    // No dialog in the second launch.
    EXPECT_EQ(app.Launch()->ExitCode(), 7);
}

INSTANTIATE_TEST_SUITE_P(All, UserName,
                         testing::Values(L"J\u00FCrgen Stra\u00DFe", L"\u0418\u0432\u0430\u043D",
                                         L"\u7530\u4E2D \u592A\u90CE", L"\u0130\u0131",
                                         L"\U0001F600 smile", L"%APPDATA%", L"a;b,c=d"));

/// A service remembers the runtime in the application's own file.
class LockedSettings : public JreNotFoundFixture {};

TEST_F(LockedSettings, ThatCannotBeWrittenDoNotEndTheLaunch) {
    settings.Application(L"Application Type", L"service");
    const std::wstring runtime = app.AddRuntime();
    app.WriteScript("main = exit 7");
    StartUntilDialog();
    const std::string before = ReadFileBytes(app.SettingsFile());
    BrowseTo(runtime);
    {
        // A file that cannot be written gives the same result as a read-only folder.
        const UniqueFile reader(CreateFileW(app.SettingsFile().c_str(), GENERIC_READ,
                                            FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                            FILE_ATTRIBUTE_NORMAL, nullptr));
        ASSERT_TRUE(reader);
        EXPECT_EQ(Confirm(), 7);
    }
    EXPECT_EQ(ReadFileBytes(app.SettingsFile()), before);
}

}  // namespace
}  // namespace tarn::test
