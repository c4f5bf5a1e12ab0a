#include "tools/setup/msi_codes.h"

#include <gtest/gtest.h>

#include "tools/common/failure.h"

namespace tarn::tools {
namespace {

TEST(MsiGuid, IsTheSameForTheSameTextAndPurpose) {
    EXPECT_EQ(GuidOf("upgrade", "Acme.Viewer"), GuidOf("upgrade", "Acme.Viewer"));
    EXPECT_NE(GuidOf("upgrade", "Acme.Viewer"), GuidOf("product", "Acme.Viewer"));
    EXPECT_NE(GuidOf("upgrade", "Acme.Viewer"), GuidOf("upgrade", "Acme.Viewer2"));
    EXPECT_NE(GuidOf("ab", "c"), GuidOf("a", "bc"));
}

TEST(MsiGuid, HasTheFormOfANameBasedOne) {
    const std::string guid = GuidOf("upgrade", "Acme.Viewer");
    ASSERT_EQ(guid.size(), 38U);
    EXPECT_EQ(guid[0], '{');
    EXPECT_EQ(guid[9], '-');
    EXPECT_EQ(guid[15], '8') << guid;
    EXPECT_NE(std::string("89AB").find(guid[20]), std::string::npos) << guid;
    EXPECT_EQ(guid.find_first_of("abcdef"), std::string::npos) << guid;
}

TEST(MsiVersion, ConsistsOfThreeNumbers) {
    EXPECT_EQ(MsiVersionOf({2, 1, 3, 9}), "2.1.3");
    EXPECT_EQ(MsiVersionOf({255, 255, 65535, 0}), "255.255.65535");
}

TEST(MsiVersion, IsRefusedAboveTheLimitsOfWindowsInstaller) {
    EXPECT_THROW(MsiVersionOf({256, 0, 0, 0}), Failure);
    EXPECT_THROW(MsiVersionOf({2026, 1, 0, 0}), Failure);
    EXPECT_THROW(MsiVersionOf({1, 256, 0, 0}), Failure);
}

TEST(MsiVersion, HasASuccessorExceptForTheHighest) {
    EXPECT_EQ(MsiVersionAfter({2, 1, 3, 9}), "2.1.4");
    EXPECT_EQ(MsiVersionAfter({2, 1, 65535, 0}), "2.2.0");
    EXPECT_EQ(MsiVersionAfter({2, 255, 65535, 0}), "3.0.0");
    EXPECT_EQ(MsiVersionAfter({255, 255, 65535, 0}), "");
}

}  // namespace
}  // namespace tarn::tools
