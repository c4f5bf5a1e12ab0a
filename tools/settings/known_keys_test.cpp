#include "tools/settings/known_keys.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace tarn::tools {
namespace {

using testing::ElementsAre;

TEST(KnownKeysTest, AreFoundInAnyCase) {
    ASSERT_NE(FindKnownKey(L"java runtime environment", L"MAIN CLASS"), nullptr);
    EXPECT_EQ(FindKnownKey(L"Application", L"Main Class"), nullptr);
    EXPECT_STREQ(FindKnownKey(L"cmd")->section, L"Application");
    EXPECT_EQ(FindKnownKey(L"Command"), nullptr);
}

TEST(KnownKeysTest, AreGroupedBySection) {
    EXPECT_THAT(KnownSections(),
                ElementsAre(L"Product Information", L"Application", L"Java Runtime Environment",
                            L"Class Path", L"Display"));
}

TEST(KnownKeysTest, AreEachInTheListOnce) {
    std::set<std::pair<std::wstring, std::wstring>> seen;
    for (const KnownKey& key : KnownKeys()) {
        EXPECT_TRUE(seen.emplace(key.section, key.key).second);
    }
    EXPECT_EQ(seen.size(), 32U);
}

TEST(KnownKeysTest, DescribeTheirForm) {
    EXPECT_EQ(DescribeForm(*FindKnownKey(L"JVM Type")),
              "one of server, favor_server (case-sensitive)");
    EXPECT_EQ(DescribeForm(*FindKnownKey(L"Single Instance")), "yes (case-sensitive)");
    for (const KnownKey& key : KnownKeys()) EXPECT_NE(DescribeForm(key), "");
}

TEST(FlagValueTest, IsOnInItsOwnFormOnly) {
    EXPECT_EQ(FlagValue(SettingForm::Yes, L"yEs"), true);
    EXPECT_EQ(FlagValue(SettingForm::Yes, L" Yes"), false);
    EXPECT_EQ(FlagValue(SettingForm::ExactlyYes, L"yes"), true);
    EXPECT_EQ(FlagValue(SettingForm::ExactlyYes, L"Yes"), false);
    EXPECT_EQ(FlagValue(SettingForm::ExactlyTrue, L"true"), true);
    EXPECT_EQ(FlagValue(SettingForm::ExactlyTrue, L"True"), false);
    EXPECT_EQ(FlagValue(SettingForm::Text, L"yes"), std::nullopt);
}

}  // namespace
}  // namespace tarn::tools
