#include "settings/ini_file.h"

#include <gtest/gtest.h>

#include "settings/ini_file_fixture.h"
#include "settings/settings.h"
#include "settings/settings_paths.h"

namespace tarn {
namespace {

using IniFileTest = IniFileFixture;

TEST_F(IniFileTest, AMissingFileSectionOrKeyReadsAsEmpty) {
    Write("[A]\r\nk=1\r\n");
    const IniFile file(path_);
    EXPECT_EQ(file.GetValue(L"A", L"k"), L"1");
    EXPECT_EQ(file.GetValue(L"A", L"none"), L"");
    EXPECT_EQ(file.GetValue(L"None", L"k"), L"");
    EXPECT_EQ(IniFile(path_ + L".none").GetValue(L"A", L"k"), L"");
}

TEST_F(IniFileTest, ValuesOfAnyLengthAreReadWhole) {
    for (const std::size_t length : {254u, 255u, 256u, 257u, 300u, 510u, 511u, 512u, 30000u}) {
        Write("[A]\r\nk=" + std::string(length, 'v') + "\r\n");
        EXPECT_EQ(IniFile(path_).GetValue(L"A", L"k"), std::wstring(length, L'v')) << length;
    }
}

TEST_F(IniFileTest, ProbeReadsTheFirstBytesOrReturnsTheError) {
    Write("\xFF\xFEok");
    unsigned char bytes[4] = {};
    EXPECT_EQ(IniFile(path_).Probe(bytes), 0u);
    EXPECT_EQ(bytes[0], 0xFF);
    EXPECT_EQ(bytes[3], 'k');
    EXPECT_EQ(IniFile(path_ + L".none").Probe(bytes),
              static_cast<unsigned long>(ERROR_FILE_NOT_FOUND));
}

TEST_F(IniFileTest, ListsSectionNamesInFileOrder) {
    std::string text;
    std::vector<std::wstring> expected;
    for (int i = 0; i < 100; ++i) {
        text += "[Section " + std::to_string(i) + "]\r\nk=1\r\n";
        expected.push_back(L"Section " + std::to_wstring(i));
    }
    Write(text);
    EXPECT_EQ(IniFile(path_).GetSectionNames(), expected);
    EXPECT_TRUE(IniFile(path_ + L".none").GetSectionNames().empty());
}

TEST_F(IniFileTest, WritingAValueKeepsTheOthers) {
    Write("[A]\r\nk=1\r\n");
    const IniFile file(path_);
    EXPECT_TRUE(file.SetValue(L"B", L"l", L"C:\\jre\\"));
    EXPECT_EQ(file.GetValue(L"A", L"k"), L"1");
    EXPECT_EQ(file.GetValue(L"B", L"l"), L"C:\\jre\\");
}

TEST_F(IniFileTest, RemoveDeletesTheFile) {
    EXPECT_TRUE(IniFile(path_).Remove());
    EXPECT_FALSE(IniFile(path_).Remove());
}

TEST_F(IniFileTest, ThePerUserFileIsBelowApplicationDataUnlessThatIsTooLong) {
    Settings settings;
    settings.productName = L"Name";
    settings.productCode = L"Code";
    wchar_t before[MAX_PATH];
    ASSERT_NE(GetEnvironmentVariableW(L"APPDATA", before, MAX_PATH), 0u);
    const auto pathWith = [&](const wchar_t* appData) {
        SetEnvironmentVariableW(L"APPDATA", appData);
        return PerUserSettingsPath(settings, L"C:\\x\\sample.exe", false);
    };
    const std::wstring longest(259, L'a');
    EXPECT_EQ(pathWith(L"C:\\data"), L"C:\\data\\Name\\Code\\sample.ini");
    EXPECT_EQ(pathWith(longest.c_str()), longest + L"\\Name\\Code\\sample.ini");
    EXPECT_EQ(pathWith((longest + L"a").c_str()), L"\\Name\\Code\\sample.ini");
    EXPECT_EQ(pathWith(nullptr), L"\\Name\\Code\\sample.ini");
    SetEnvironmentVariableW(L"APPDATA", before);
}

}  // namespace
}  // namespace tarn
