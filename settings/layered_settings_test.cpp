#include "settings/layered_settings.h"

#include <gtest/gtest.h>

#include "base/windows.h"

namespace tarn {
namespace {

class LayeredSettingsTest : public testing::Test {
  protected:
    void SetUp() override {
        wchar_t folder[MAX_PATH];
        GetTempPathW(MAX_PATH, folder);
        wchar_t name[MAX_PATH];
        ASSERT_NE(GetTempFileNameW(folder, L"ini", 0, name), 0u);
        path_ = name;
    }
    void TearDown() override { DeleteFileW(path_.c_str()); }

    std::wstring path_;
};

TEST_F(LayeredSettingsTest, AValueInTheFileEndsTheSearch) {
    const IniFile file(path_);
    ASSERT_TRUE(file.SetValue(L"A", L"k", L"plain"));
    ASSERT_TRUE(file.SetValue(L"A+", L"k", L"more"));
    EXPECT_EQ(LayeredSettings(path_).GetValue(L"A", L"k"), L"plain");
}

TEST_F(LayeredSettingsTest, AnEmptyValueFallsThroughToTheAdditiveSection) {
    const IniFile file(path_);
    ASSERT_TRUE(file.SetValue(L"A", L"k", L""));
    ASSERT_TRUE(file.SetValue(L"A+", L"k", L"-Xmx1g"));
    EXPECT_EQ(LayeredSettings(path_).GetValue(L"A", L"k"), L" -Xmx1g");
}

TEST_F(LayeredSettingsTest, NothingAnywhereIsEmpty) {
    EXPECT_EQ(LayeredSettings(path_).GetValue(L"A", L"k"), L"");
}

}  // namespace
}  // namespace tarn
