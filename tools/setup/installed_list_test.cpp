#include "tools/setup/installed_list.h"

#include <gtest/gtest.h>

#include "tools/common/failure.h"

namespace tarn::tools {
namespace {

PackageContent ContentOf(const std::vector<std::string>& files,
                         const std::vector<std::string>& folders = {}) {
    PackageContent content;
    for (const std::string& path : files) {
        PackageFile file;
        file.path = path;
        content.files.push_back(file);
    }
    content.folders = folders;
    return content;
}

Product Viewer() {
    Product product;
    product.fileName = "Viewer";
    product.executable = "viewer.exe";
    return product;
}

TEST(InstalledList, NamesFilesThenFoldersFromTheDeepest) {
    EXPECT_EQ(
        InstalledList({}, Viewer(), ContentOf({"a.jar", "lib/x/b.jar"}, {"lib", "lib/x"}), {}),
        "F a.jar\r\nF lib\\x\\b.jar\r\nD lib\\x\r\nD lib\r\nS Viewer.lnk\r\n");
}

TEST(InstalledList, NamesTheShortcutOnTheDesktopAndTheRegistryValues) {
    SetupRequest request;
    request.desktopShortcut = true;
    EXPECT_EQ(InstalledList(request, Viewer(), {}, {{"Software\\A\\B", "n", "\x01\\v", false, ""}}),
              "S Viewer.lnk\r\nL Viewer.lnk\r\nK Software\\A\\B\r\nN n\r\nV \x01\\v\r\n"
              "E Software\\A\\B\r\nE Software\\A\r\n");
}

TEST(InstalledList, NamesTheArchivesOfTheLauncher) {
    Product product = Viewer();
    product.archivePrefix = "%LOCALAPPDATA%\\V\\V";
    EXPECT_EQ(InstalledList({}, product, {}, {}), "S Viewer.lnk\r\nA %LOCALAPPDATA%\\V\\V\r\n");
}

TEST(SettingsFile, IsTheOneBesideTheExecutable) {
    EXPECT_EQ(SettingsFileOf(Viewer(), ContentOf({"Viewer.INI", "other.ini"})), "Viewer.INI");
    EXPECT_EQ(SettingsFileOf(Viewer(), ContentOf({"other.ini"})), "");
}

TEST(ReservedNames, AreRefusedInAnyCase) {
    EXPECT_NO_THROW(CheckReservedNames(ContentOf({"lib/uninstall.exe"})));
    EXPECT_THROW(CheckReservedNames(ContentOf({"Uninstall.EXE"})), Failure);
    EXPECT_THROW(CheckReservedNames(ContentOf({"uninstall.lst"})), Failure);
}

}  // namespace
}  // namespace tarn::tools
