#include "tools/setup/msi_defaults.h"

#include <gtest/gtest.h>

namespace tarn::tools {
namespace {

Product Viewer() {
    Product product;
    product.name = "Viewer";
    product.id = "Acme.Viewer";
    product.executable = "viewer.exe";
    return product;
}

TEST(MsiDefaults, OfAnExtensionBelongToTheProductWhileTheyNameItsProgId) {
    const Product product = Viewer();
    const std::vector<MsiDefault> defaults =
        MsiDefaultsOf(product, AssociationValues(product, {{".abc", "Text", ""}}, {}));
    ASSERT_EQ(defaults.size(), 1U);
    EXPECT_EQ(defaults[0].classesKey, ".abc");
    EXPECT_EQ(defaults[0].own, ProgIdOf(product, ".abc"));
    EXPECT_EQ(defaults[0].condition, "NOT FOUNDDEFAULT1 OR FOUNDDEFAULT1 = OWNDEFAULT1");
    ASSERT_EQ(defaults[0].values.size(), 1U);
}

TEST(MsiDefaults, OfASchemeBelongToTheProductWhileTheyStartItsExecutable) {
    const Product product = Viewer();
    const std::vector<MsiDefault> defaults =
        MsiDefaultsOf(product, AssociationValues(product, {}, {{"abcd", "Link"}}));
    ASSERT_EQ(defaults.size(), 1U);
    EXPECT_EQ(defaults[0].classesKey, "abcd\\shell\\open\\command");
    EXPECT_EQ(defaults[0].own, "\\viewer.exe");
    EXPECT_EQ(defaults[0].condition, "NOT FOUNDDEFAULT1 OR FOUNDDEFAULT1 ~>< OWNDEFAULT1");
    EXPECT_GT(defaults[0].values.size(), 1U);
}

TEST(MsiDefaults, HaveIdentifiersOfTheirOwn) {
    const Product product = Viewer();
    const std::vector<MsiDefault> defaults = MsiDefaultsOf(
        product, AssociationValues(product, {{".abc", "A", ""}, {".abd", "B", ""}}, {}));
    ASSERT_EQ(defaults.size(), 2U);
    EXPECT_EQ(defaults[0].component, "default1");
    EXPECT_EQ(defaults[1].component, "default2");
    EXPECT_EQ(defaults[1].property, "FOUNDDEFAULT2");
}

TEST(MsiDefaults, AreNoneWithoutAssociations) {
    EXPECT_TRUE(MsiDefaultsOf(Viewer(), {}).empty());
}

}  // namespace
}  // namespace tarn::tools
