#include "tools/settings/known_keys.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarn::tools {
namespace {

using testing::ElementsAre;

TEST(KnownKeysTest, AreFoundWhateverTheLetterCase) {
    ASSERT_NE(FindKnownKey(L"java runtime environment", L"MAIN CLASS"), nullptr);
    EXPECT_EQ(FindKnownKey(L"Application", L"Main Class"), nullptr);
    EXPECT_STREQ(FindKnownKey(L"cmd")->section, L"Application");
    EXPECT_EQ(FindKnownKey(L"Command"), nullptr);
}

TEST(KnownKeysTest, HaveTheirSectionsOnce) {
    EXPECT_THAT(KnownSections(),
                ElementsAre(L"Product Information", L"Application", L"Java Runtime Environment",
                            L"Class Path", L"Display"));
}

TEST(KnownKeysTest, DescribeTheirForm) {
    EXPECT_EQ(DescribeForm(*FindKnownKey(L"JVM Type")),
              "one of server, favor_server (letter case counts)");
    EXPECT_EQ(DescribeForm(*FindKnownKey(L"Single Instance")), "exactly yes");
    for (const KnownKey& key : KnownKeys()) EXPECT_NE(DescribeForm(key), "");
}

}  // namespace
}  // namespace tarn::tools
