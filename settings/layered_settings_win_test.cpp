#include "settings/layered_settings.h"

#include <gtest/gtest.h>

#include "settings/ini_file_fixture.h"

namespace tarn {
namespace {

using LayeredSettingsTest = IniFileFixture;

TEST_F(LayeredSettingsTest, AValueInTheFileEndsTheSearch) {
    const IniFile file(path_);
    ASSERT_TRUE(file.SetValue(L"A", L"k", L"plain"));
    ASSERT_TRUE(file.SetValue(L"A+", L"k", L"more"));
    EXPECT_EQ(LayeredSettings(path_).GetValue(L"A", L"k"), L"plain");
}

TEST_F(LayeredSettingsTest, AnEmptyValueIsReadFromTheAdditiveSection) {
    const IniFile file(path_);
    ASSERT_TRUE(file.SetValue(L"A", L"k", L""));
    ASSERT_TRUE(file.SetValue(L"A+", L"k", L"-Xmx1g"));
    EXPECT_EQ(LayeredSettings(path_).GetValue(L"A", L"k"), L" -Xmx1g");
}

TEST_F(LayeredSettingsTest, AnAbsentValueIsEmpty) {
    EXPECT_EQ(LayeredSettings(path_).GetValue(L"A", L"k"), L"");
}

}  // namespace
}  // namespace tarn
