#include "tools/explain/setting_table.h"

#include <gtest/gtest.h>

#include <set>

namespace tarn::tools {
namespace {

TEST(SettingTableTest, HasEveryKeyOnceAndItsSectionsTogether) {
    std::set<std::pair<std::wstring, std::wstring>> seen;
    std::set<std::wstring> sections;
    std::wstring section;
    for (const SettingRow& row : SettingRows()) {
        EXPECT_TRUE(seen.emplace(row.section, row.key).second);
        if (section != row.section) {
            EXPECT_TRUE(sections.insert(row.section).second);
        }
        section = row.section;
    }
    EXPECT_EQ(seen.size(), 30U);
    EXPECT_EQ(sections.size(), 5U);
}

TEST(SettingTableTest, FlagsAreOnInTheirOwnFormOnly) {
    EXPECT_EQ(MeaningOf(SettingForm::YesInAnyCase, L"yEs"), "on");
    EXPECT_EQ(MeaningOf(SettingForm::YesInAnyCase, L" Yes"), "off");
    EXPECT_EQ(MeaningOf(SettingForm::ExactlyYes, L"yes"), "on");
    EXPECT_EQ(MeaningOf(SettingForm::ExactlyYes, L"Yes"), "off");
    EXPECT_EQ(MeaningOf(SettingForm::ExactlyTrue, L"true"), "on");
    EXPECT_EQ(MeaningOf(SettingForm::ExactlyTrue, L"True"), "off");
    EXPECT_EQ(MeaningOf(SettingForm::Text, L"yes"), "");
}

}  // namespace
}  // namespace tarn::tools
