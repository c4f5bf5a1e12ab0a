#include "tools/setup/association.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tools/common/failure.h"
#include "tools/setup/product.h"

namespace tarn::tools {
namespace {

Product Viewer() {
    Product product;
    product.name = "Demo Viewer";
    product.id = "Acme.Viewer";
    product.executable = "viewer.exe";
    product.description = "Shows demos";
    return product;
}

const RegistryValue* Find(const std::vector<RegistryValue>& values, const std::string& key,
                          const std::string& name) {
    const auto found = std::find_if(values.begin(), values.end(), [&](const RegistryValue& value) {
        return value.key == key && value.name == name;
    });
    return found == values.end() ? nullptr : &*found;
}

TEST(AssociationOption, HasAnExtensionADescriptionAndAnIcon) {
    const Association association = ParseAssociation(".DEMO=Demo, a document,icons\\demo.ico");
    EXPECT_EQ(association.extension, ".demo");
    EXPECT_EQ(association.description, "Demo, a document");
    EXPECT_EQ(association.icon, "icons/demo.ico");
}

TEST(AssociationOption, KeepsACommaThatNoIconFollows) {
    const Association association = ParseAssociation(".demo=Demos, all");
    EXPECT_EQ(association.description, "Demos, all");
    EXPECT_EQ(association.icon, "");
}

TEST(AssociationOption, MayBeAnExtensionAlone) {
    EXPECT_EQ(ParseAssociation(".demo").description, "");
}

TEST(AssociationOption, IsRefusedForWhatIsNoExtensionOrIsOfWindows) {
    for (const char* const option :
         {"", "demo", ".", ".a b", ".a\\b", ".a.b", "=x", ".exe", ".LNK=x"}) {
        EXPECT_THROW(ParseAssociation(option), Failure) << option;
    }
}

TEST(ProtocolOption, IsRefusedForWhatIsNoSchemeOrIsOfWindows) {
    EXPECT_EQ(ParseProtocol("Demo+x=Link").scheme, "demo+x");
    for (const char* const option : {"", "x", "1demo", "demo:", "http=Web", "FILE"}) {
        EXPECT_THROW(ParseProtocol(option), Failure) << option;
    }
}

TEST(AssociationValues, OffersTheApplicationAndTakesOnlyAFreeDefault) {
    const auto values = AssociationValues(Viewer(), {{".demo", "Demo", ""}}, {});
    const std::string classes = "Software\\Classes\\";
    const RegistryValue* value =
        Find(values, classes + ".demo\\OpenWithProgids", "Acme.Viewer.demo");
    ASSERT_NE(value, nullptr);
    EXPECT_FALSE(value->onlyIfFree);
    value = Find(values, classes + ".demo", "");
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->data, "Acme.Viewer.demo");
    EXPECT_TRUE(value->onlyIfFree);
    EXPECT_EQ(value->classesKey, ".demo");
    value = Find(values, classes + "Acme.Viewer.demo\\shell\\open\\command", "");
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->data, "\"\x01\\viewer.exe\" \"%1\"");
    value = Find(values, classes + "Acme.Viewer.demo\\DefaultIcon", "");
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->data, "\x01\\viewer.exe,0");
    EXPECT_NE(Find(values, classes + "Applications\\viewer.exe\\SupportedTypes", ".demo"), nullptr);
}

TEST(AssociationValues, UsesTheIconOfTheDocument) {
    const auto values = AssociationValues(Viewer(), {{".demo", "Demo", "icons/d.ico"}}, {});
    const RegistryValue* const value =
        Find(values, "Software\\Classes\\Acme.Viewer.demo\\DefaultIcon", "");
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->data, "\x01\\icons\\d.ico");
}

TEST(AssociationValues, TakesAProtocolOnlyWhenNoCommandHandlesIt) {
    const auto values = AssociationValues(Viewer(), {}, {{"demo", "Demo link"}});
    std::size_t conditional = 0;
    for (const RegistryValue& value : values) {
        if (!value.onlyIfFree) continue;
        ++conditional;
        EXPECT_EQ(value.classesKey, "demo\\shell\\open\\command");
    }
    EXPECT_EQ(conditional, 4U);
    EXPECT_NE(Find(values, "Software\\Classes\\demo", "URL Protocol"), nullptr);
}

TEST(AssociationValues, AreNoneWithoutAssociations) {
    EXPECT_TRUE(AssociationValues(Viewer(), {}, {}).empty());
}

TEST(RemovableKeys, AreThoseOfTheProductDeepestFirst) {
    const auto keys =
        RemovableKeys({{"Software\\Classes\\.demo\\OpenWithProgids", "a", "", false, ""},
                       {"Software\\RegisteredApplications", "a", "", false, ""},
                       {"Software\\Acme.Viewer\\Capabilities", "a", "", false, ""}});
    EXPECT_EQ(keys, (std::vector<std::string>{
                        "Software\\Classes\\.demo\\OpenWithProgids", "Software\\Classes\\.demo",
                        "Software\\Acme.Viewer\\Capabilities", "Software\\Acme.Viewer"}));
}

TEST(ProgId, DiffersForAnExtensionAndASchemeOfTheSameName) {
    Product product;
    product.id = "Acme.Viewer";
    EXPECT_EQ(ProgIdOf(product, ".abc"), "Acme.Viewer.abc");
    EXPECT_EQ(ProgIdOf(product, "abc"), "Acme.Viewer.url.abc");
}

}  // namespace
}  // namespace tarn::tools
