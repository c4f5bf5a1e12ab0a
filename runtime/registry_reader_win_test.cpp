#include "runtime/registry_reader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/unit_support/hive_fixture.h"

namespace tarn {
namespace {

class RegistryReaderTest : public testing::Test {
  protected:
    HomeValue Read(const wchar_t* name) {
        EXPECT_TRUE(view_.OpenRoot(L"Software\\Root"));
        return view_.ReadHome(name);
    }

    HiveFixture hive_;
    RegistryReader view_{KEY_READ};
};

TEST_F(RegistryReaderTest, DoesNotOpenAMissingRoot) {
    EXPECT_FALSE(view_.OpenRoot(L"Software\\Root"));
    hive_.Make(L"Software\\Root");
    EXPECT_TRUE(view_.OpenRoot(L"Software\\Root"));
    EXPECT_FALSE(view_.OpenRoot(L"Software\\Other"));
}

TEST_F(RegistryReaderTest, EnumeratesEverySubkeyOnce) {
    hive_.Make(L"Software\\Root\\11.0.2\\Deeper");
    hive_.Make(L"Software\\Root\\1.8.0_231");
    hive_.Make(L"Software\\Root\\17");
    for (int round = 0; round < 2; ++round) {
        ASSERT_TRUE(view_.OpenRoot(L"Software\\Root"));
        std::wstring name;
        std::vector<std::wstring> names;
        while (view_.NextSubkey(name)) names.push_back(name);
        std::sort(names.begin(), names.end());
        EXPECT_EQ(names, (std::vector<std::wstring>{L"1.8.0_231", L"11.0.2", L"17"}));
    }
}

TEST_F(RegistryReaderTest, ReadsTheLongestName) {
    const std::wstring longest = L"17." + std::wstring(252, L'7');
    hive_.Make(L"Software\\Root\\" + longest);
    hive_.SetText(L"Software\\Root\\" + longest, L"C:\\Java");
    ASSERT_TRUE(view_.OpenRoot(L"Software\\Root"));
    std::wstring name;
    ASSERT_TRUE(view_.NextSubkey(name));
    EXPECT_EQ(name, longest);
    EXPECT_EQ(view_.ReadHome(name).text, L"C:\\Java");
    EXPECT_FALSE(view_.NextSubkey(name));
}

TEST_F(RegistryReaderTest, ReadsHomesOfAnyLength) {
    for (const std::size_t length : {1U, 255U, 1000U, 30000U}) {
        const std::wstring home(length, L'h');
        hive_.SetText(L"Software\\Root\\17", home);
        EXPECT_EQ(Read(L"17").text, home);
        EXPECT_TRUE(Read(L"17").keyOpened);
    }
}

TEST_F(RegistryReaderTest, DoesNotExpandVariables) {
    hive_.SetText(L"Software\\Root\\17", L"%SystemRoot%\\Java", REG_EXPAND_SZ);
    EXPECT_EQ(Read(L"17").text, L"%SystemRoot%\\Java");
}

TEST_F(RegistryReaderTest, ReadsTextsWithoutATerminator) {
    hive_.Set(L"Software\\Root\\17", REG_SZ, L"C:\\Java", 7 * sizeof(wchar_t));
    EXPECT_EQ(Read(L"17").text, L"C:\\Java");
    hive_.Set(L"Software\\Root\\17", REG_BINARY, L"C:\\Java", 7 * sizeof(wchar_t));
    EXPECT_EQ(Read(L"17").text, L"C:\\Java");
    hive_.Set(L"Software\\Root\\17", REG_BINARY, L"C:\\Java", 7 * sizeof(wchar_t) - 1);
    EXPECT_EQ(Read(L"17").text, L"C:\\Jav");
}

TEST_F(RegistryReaderTest, ReadsTheFirstOfSeveralTexts) {
    const wchar_t texts[] = L"C:\\One\0C:\\Two\0";
    hive_.Set(L"Software\\Root\\17", REG_MULTI_SZ, texts, sizeof texts);
    EXPECT_EQ(Read(L"17").text, L"C:\\One");
}

TEST_F(RegistryReaderTest, ReadsANumberAsText) {
    const DWORD number = 0x00620061;
    hive_.Set(L"Software\\Root\\17", REG_DWORD, &number, sizeof number);
    EXPECT_EQ(Read(L"17").text, L"ab");
}

TEST_F(RegistryReaderTest, ReadsMissingAndEmptyHomesAsEmpty) {
    hive_.Make(L"Software\\Root\\1");
    hive_.SetText(L"Software\\Root\\2", L"");
    hive_.Set(L"Software\\Root\\3", REG_SZ, L"", 0);
    hive_.Set(L"Software\\Root\\4", REG_BINARY, "x", 1);
    for (const wchar_t* name : {L"1", L"2", L"3", L"4"}) {
        EXPECT_TRUE(Read(name).keyOpened);
        EXPECT_EQ(Read(name).text, L"");
    }
    EXPECT_FALSE(Read(L"5").keyOpened);
    EXPECT_EQ(Read(L"5").text, L"");
}

TEST_F(RegistryReaderTest, DoesNotOpenAKeyWithoutPermission) {
    hive_.SetText(L"Software\\Root\\17", L"C:\\Java");
    hive_.Lock(L"Software\\Root\\17");
    EXPECT_FALSE(Read(L"17").keyOpened);
    hive_.Lock(L"Software\\Root");
    EXPECT_FALSE(view_.OpenRoot(L"Software\\Root"));
}

}  // namespace
}  // namespace tarn
