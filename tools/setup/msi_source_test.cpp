#include "tools/setup/msi_source.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tools/setup/msi_plan_fixture.h"

namespace tarn::tools {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::Not;

// An attribute of all elements with a name, as written in the source.
std::vector<std::string> Values(const MsiPlan& plan, const std::string& element,
                                const std::string& attribute) {
    const std::string source = WixSource(plan);
    const std::string start = '<' + element + ' ';
    const std::string key = ' ' + attribute + "=\"";
    std::vector<std::string> values;
    for (std::size_t at = source.find(start); at != std::string::npos;
         at = source.find(start, at + 1)) {
        const std::size_t begin = source.find(key, at) + key.size();
        values.push_back(source.substr(begin, source.find('"', begin) - begin));
    }
    return values;
}

TEST(MsiSource, ListsEveryFileAsAComponentOfItsOwn) {
    const MsiPlan plan = ViewerPlan();
    EXPECT_EQ(Values(plan, "File", "Name"),
              (std::vector<std::string>{"a.jar", "viewer.exe", "viewer.ini"}));
    EXPECT_EQ(Values(plan, "Component", "Id").size(), 3U);
    EXPECT_EQ(Values(plan, "ComponentRef", "Id"), Values(plan, "Component", "Id"));
}

TEST(MsiSource, KeepsTheCodesOfTheComponentsInTheNextVersion) {
    MsiPlan next = ViewerPlan();
    next.product.number = {2, 2, 0, 0};
    next.codes.product = "{NEXT}";
    next.content.files.insert(next.content.files.begin(), PackageFileAt("a.txt"));
    const std::vector<std::string> codes = Values(next, "Component", "Guid");
    for (const std::string& code : Values(ViewerPlan(), "Component", "Guid")) {
        EXPECT_THAT(codes, Contains(code));
    }
}

TEST(MsiSource, InstallsForOneUserOrForAll) {
    MsiPlan plan = ViewerPlan();
    EXPECT_THAT(Values(plan, "Directory", "Id"), Contains("LocalAppDataFolder"));
    EXPECT_THAT(Values(plan, "Package", "InstallScope"), Contains("perUser"));
    plan.perMachine = true;
    EXPECT_THAT(Values(plan, "Directory", "Id"), Contains("ProgramFiles64Folder"));
    EXPECT_THAT(Values(plan, "Package", "InstallScope"), Contains("perMachine"));
}

TEST(MsiSource, StartsTheExecutableFromItsShortcuts) {
    MsiPlan plan = ViewerPlan();
    EXPECT_EQ(Values(plan, "Shortcut", "Directory"), std::vector<std::string>{"ProgramMenuFolder"});
    EXPECT_EQ(Values(plan, "Shortcut", "Target"), std::vector<std::string>{"[#file2]"});
    plan.desktopShortcut = true;
    EXPECT_THAT(Values(plan, "Shortcut", "Directory"), Contains("DesktopFolder"));
}

TEST(MsiSource, CreatesEmptyFoldersAndRemovesTheInstallationFolderAfterThem) {
    MsiPlan plan = ViewerPlan();
    EXPECT_THAT(WixSource(plan), Not(HasSubstr("<CreateFolder")));
    plan.content.folders = {"empty", "lib"};
    const std::string source = WixSource(plan);
    const std::size_t first = source.find("<CreateFolder");
    EXPECT_NE(source.find("<CreateFolder", first + 1), std::string::npos);
}

TEST(MsiSource, TakesNoNameForAVariableOrAProperty) {
    MsiPlan plan = ViewerPlan();
    plan.product.executable = "v $(x) [y].exe";
    plan.content.files[1] = PackageFileAt("v $(x) [y].exe");
    plan.values = AssociationValues(plan.product, {{".abc", "#[INSTALLDIR]", ""}}, {});
    EXPECT_THAT(Values(plan, "File", "Name"), Contains("v $(var.dollar)(x) [y].exe"));
    EXPECT_THAT(Values(plan, "RegistryValue", "Value"), Contains("#[\\[]INSTALLDIR[\\]]"));
    EXPECT_THAT(
        Values(plan, "RegistryValue", "Value"),
        Contains("&quot;[INSTALLDIR]v $(var.dollar)(x) [\\[]y[\\]].exe&quot; &quot;%1&quot;"));
    EXPECT_THAT(Values(plan, "Shortcut", "Target"), Contains("[#file2]"));
}

TEST(MsiSource, DividesManyComponentsIntoFeatures) {
    MsiPlan plan = ViewerPlan();
    for (int number = 0; number < 2000; ++number) {
        plan.content.files.push_back(PackageFileAt(("z" + std::to_string(number)).c_str()));
    }
    EXPECT_EQ(Values(plan, "Feature", "Id"), (std::vector<std::string>{"Part1", "Part2", "Part3"}));
}

}  // namespace
}  // namespace tarn::tools
