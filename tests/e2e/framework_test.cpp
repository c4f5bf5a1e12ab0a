// Tests of the test support itself.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/fake_jvm_fixture.h"
#include "tests/support/named_event.h"
#include "tests/support/registry_key.h"

namespace tarn::test {
namespace {

TEST(SettingsText, KeepsTheOrderAndReplacesValues) {
    SettingsText settings;
    settings.Application(L"A", L"1").Runtime(L"B", L"2").Application(L"C", L"3");
    settings.Application(L"A", L"4").Remove(L"Application", L"C");
    EXPECT_EQ(settings.Text(), L"[Application]\r\nA=4\r\n[Java Runtime Environment]\r\nB=2\r\n");
}

TEST(InstalledApplication, HasAPathWithASpaceAndLettersOutsideAscii) {
    std::wstring folder;
    {
        const InstalledApplication app;
        folder = app.folder();
        EXPECT_NE(folder.find(L' '), std::wstring::npos);
        EXPECT_NE(folder.find(L'\u00C4'), std::wstring::npos);
        EXPECT_NE(GetFileAttributesW(app.Executable().c_str()), INVALID_FILE_ATTRIBUTES);
    }
    EXPECT_EQ(GetFileAttributesW(folder.c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST(LaunchedProcess, PassesEnvironmentDirectoryAndExitCode) {
    const InstalledApplication app;
    Start start;
    start.program = L"C:\\windows\\system32\\cmd.exe";
    start.commandLine = L"cmd.exe /c echo %TARN_PROBE%%TARN_GONE%& cd & exit -5";
    start.directory = app.folder();
    start.environment[L"TARN_PROBE"] = L"here";
    start.environment[L"TARN_GONE"] = std::nullopt;
    start.outputFile = app.OutputFile();
    const LaunchedProcess process(start);
    EXPECT_EQ(process.ExitCode(), -5);
    EXPECT_THAT(ReadFileBytes(app.OutputFile()), testing::StartsWith("here%TARN_GONE%"));
}

TEST(NamedEvent, IsSetOnce) {
    NamedEvent event;
    EXPECT_FALSE(event.IsSet());
    NamedEvent(event.name()).Set();
    EXPECT_TRUE(event.IsSet());
}

TEST(TemporaryKey, RemovesWhatItHasCreated) {
    {
        const TemporaryKey key(HKEY_CURRENT_USER, L"Software\\TarnTest\\a\\b");
        key.Set(L"Name", L"value");
        HKEY found = nullptr;
        EXPECT_EQ(RegOpenKeyW(HKEY_CURRENT_USER, L"Software\\TarnTest\\a\\b", &found), 0);
        RegCloseKey(found);
    }
    HKEY found = nullptr;
    EXPECT_NE(RegOpenKeyW(HKEY_CURRENT_USER, L"Software\\TarnTest", &found), 0);
}

}  // namespace
}  // namespace tarn::test
