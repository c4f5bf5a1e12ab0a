#include "tools/setup/msi_source.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

#include "tools/common/failure.h"

namespace tarn::tools {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::Not;

PackageFile File(const char* path) {
    PackageFile file;
    file.path = path;
    file.size = 1;
    file.time = std::chrono::file_clock::from_sys(std::chrono::sys_seconds(
        std::chrono::sys_days(std::chrono::year(2021) / 2 / 3) + std::chrono::hours(4)));
    return file;
}

MsiPlan Plan() {
    MsiPlan plan;
    plan.product.name = "Viewer";
    plan.product.fileName = "Viewer";
    plan.product.version = "2.1";
    plan.product.number = {2, 1, 0, 0};
    plan.product.vendor = "Acme";
    plan.product.id = "Acme.Viewer";
    plan.product.executable = "viewer.exe";
    plan.content.files = {File("lib/a.jar"), File("viewer.exe"), File("viewer.ini")};
    plan.content.folders = {"lib"};
    plan.codes = {"{UPGRADE}", "{PRODUCT}", "{PACKAGE}"};
    return plan;
}

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
    const MsiPlan plan = Plan();
    EXPECT_EQ(Values(plan, "File", "Name"),
              (std::vector<std::string>{"a.jar", "viewer.exe", "viewer.ini"}));
    EXPECT_EQ(Values(plan, "Component", "Id").size(), 3U);
    EXPECT_EQ(Values(plan, "ComponentRef", "Id"), Values(plan, "Component", "Id"));
}

TEST(MsiSource, KeepsTheCodesOfTheComponentsInTheNextVersion) {
    MsiPlan next = Plan();
    next.product.number = {2, 2, 0, 0};
    next.codes.product = "{NEXT}";
    next.content.files.insert(next.content.files.begin(), File("a.txt"));
    const std::vector<std::string> codes = Values(next, "Component", "Guid");
    for (const std::string& code : Values(Plan(), "Component", "Guid")) {
        EXPECT_THAT(codes, Contains(code));
    }
}

TEST(MsiSource, InstallsForOneUserOrForAll) {
    MsiPlan plan = Plan();
    EXPECT_THAT(Values(plan, "Directory", "Id"), Contains("LocalAppDataFolder"));
    EXPECT_THAT(Values(plan, "Package", "InstallScope"), Contains("perUser"));
    plan.perMachine = true;
    EXPECT_THAT(Values(plan, "Directory", "Id"), Contains("ProgramFiles64Folder"));
    EXPECT_THAT(Values(plan, "Package", "InstallScope"), Contains("perMachine"));
}

TEST(MsiSource, StartsTheExecutableFromItsShortcuts) {
    MsiPlan plan = Plan();
    EXPECT_EQ(Values(plan, "Shortcut", "Directory"), std::vector<std::string>{"ProgramMenuFolder"});
    EXPECT_EQ(Values(plan, "Shortcut", "Target"), std::vector<std::string>{"[#file2]"});
    plan.desktopShortcut = true;
    EXPECT_THAT(Values(plan, "Shortcut", "Directory"), Contains("DesktopFolder"));
}

TEST(MsiSource, CreatesEmptyFoldersAndRemovesTheInstallationFolderAfterThem) {
    MsiPlan plan = Plan();
    EXPECT_THAT(WixSource(plan), Not(HasSubstr("<CreateFolder")));
    plan.content.folders = {"empty", "lib"};
    const std::string source = WixSource(plan);
    const std::size_t first = source.find("<CreateFolder");
    EXPECT_NE(source.find("<CreateFolder", first + 1), std::string::npos);
}

TEST(MsiSource, TakesNoNameForAVariableOrAProperty) {
    MsiPlan plan = Plan();
    plan.product.executable = "v $(x) [y].exe";
    plan.content.files[1] = File("v $(x) [y].exe");
    plan.values = AssociationValues(plan.product, {{".abc", "#[INSTALLDIR]", ""}}, {});
    EXPECT_THAT(Values(plan, "File", "Name"), Contains("v $(var.dollar)(x) [y].exe"));
    EXPECT_THAT(Values(plan, "RegistryValue", "Value"), Contains("#[\\[]INSTALLDIR[\\]]"));
    EXPECT_THAT(
        Values(plan, "RegistryValue", "Value"),
        Contains("&quot;[INSTALLDIR]v $(var.dollar)(x) [\\[]y[\\]].exe&quot; &quot;%1&quot;"));
    EXPECT_THAT(Values(plan, "Shortcut", "Target"), Contains("[#file2]"));
}

TEST(MsiSource, DividesManyComponentsIntoFeatures) {
    MsiPlan plan = Plan();
    for (int number = 0; number < 2000; ++number) {
        plan.content.files.push_back(File(("z" + std::to_string(number)).c_str()));
    }
    EXPECT_EQ(Values(plan, "Feature", "Id"), (std::vector<std::string>{"Part1", "Part2", "Part3"}));
}

TEST(MsiTables, ConditionTheDefaultsAndAdmitTheFolderOnTheCommandLine) {
    MsiPlan plan = Plan();
    plan.values = AssociationValues(plan.product, {{".abc", "Text", ""}}, {});
    EXPECT_EQ(TableChanges(plan),
              (std::vector<std::string>{
                  "UPDATE `Component` SET `Condition` = 'NOT FOUNDDEFAULT1 OR FOUNDDEFAULT1 = "
                  "OWNDEFAULT1' WHERE `Component` = 'default1'",
                  "UPDATE `Property` SET `Value` = "
                  "'INSTALLDIR;OLDERVERSION;NEWERVERSION;FOUNDDEFAULT1' WHERE `Property` = "
                  "'SecureCustomProperties'"}));
}

TEST(MsiTables, NameTheCodePage) {
    EXPECT_EQ(CodePageTable(), "\r\n\r\n1252\t_ForceCodepage\r\n");
}

TEST(MsiTables, ContainThePackageCodeAndTheTimeOfTheNewestFile) {
    const std::string table = SummaryTable(Plan());
    EXPECT_THAT(table, HasSubstr("\r\n9\t{PACKAGE}\r\n"));
    EXPECT_THAT(table, HasSubstr("\r\n12\t2021/02/03 04:00:00\r\n"));
}

TEST(CheckMsi, RefusesWhatDoesNotFit) {
    MsiPlan plan = Plan();
    EXPECT_NO_THROW(CheckMsi(plan.product, plan.content, plan.values));
    plan.content.size = std::uint64_t{3} << 30;
    EXPECT_THROW(CheckMsi(plan.product, plan.content, plan.values), Failure);
    plan = Plan();
    plan.content.files.resize(20'000, File("a"));
    EXPECT_THROW(CheckMsi(plan.product, plan.content, plan.values), Failure);
    plan = Plan();
    plan.product.fileName = std::string(128, 'a');
    EXPECT_THROW(CheckMsi(plan.product, plan.content, plan.values), Failure);
    plan = Plan();
    plan.product.number = {2026, 1, 0, 0};
    EXPECT_THROW(CheckMsi(plan.product, plan.content, plan.values), Failure);
}

TEST(CheckMsi, RefusesCharactersOutsideTheCodePage) {
    MsiPlan plan = Plan();
    plan.content.files.push_back(File("\xC3\xA4 \xE2\x82\xAC \xC5\x93.txt"));
    EXPECT_NO_THROW(CheckMsi(plan.product, plan.content, plan.values));
    plan.content.files.push_back(File("a \xC5\x82.txt"));
    EXPECT_THROW(CheckMsi(plan.product, plan.content, plan.values), Failure);
    plan = Plan();
    plan.values = AssociationValues(plan.product, {{".abc", "\xE4\xB8\xAD", ""}}, {});
    EXPECT_THROW(CheckMsi(plan.product, plan.content, plan.values), Failure);
}

}  // namespace
}  // namespace tarn::tools
