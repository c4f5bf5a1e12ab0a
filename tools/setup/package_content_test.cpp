#include "tools/setup/package_content.h"

#include "tools/common/failure.h"
#include "tools/common/folder_fixture.h"

namespace tarn::tools {
namespace {

class PackageContentTest : public FolderTest {};

TEST_F(PackageContentTest, ListsFilesAndFoldersByPathWithSizesAndTimes) {
    Put("b.txt", "12");
    Put("lib/a.jar", "123");
    std::filesystem::create_directories(folder_ / "empty" / "inner");
    const PackageContent content = ListPackage(folder_, "App");
    ASSERT_EQ(content.files.size(), 2U);
    EXPECT_EQ(content.files[0].path, "b.txt");
    EXPECT_EQ(content.files[1].path, "lib/a.jar");
    EXPECT_EQ(content.files[1].size, 3U);
    EXPECT_EQ(content.files[1].time, std::filesystem::last_write_time(folder_ / "lib/a.jar"));
    EXPECT_TRUE(content.files[1].source.is_absolute());
    EXPECT_EQ(content.folders, (std::vector<std::string>{"empty", "empty/inner", "lib"}));
    EXPECT_EQ(content.size, 5U);
    EXPECT_EQ(content.LongestPath(), 9U);
}

TEST_F(PackageContentTest, FindsFilesInAnyCase) {
    Put("Lib/A.jar", "1");
    const PackageContent content = ListPackage(folder_, "App");
    EXPECT_NE(content.Find("lib/a.JAR"), nullptr);
    EXPECT_EQ(content.Find("lib"), nullptr);
}

TEST_F(PackageContentTest, RefusesAPathThatWindowsCouldNotCreate) {
    const std::string folder(100, 'a');
    Put((folder + "/" + std::string(40, 'b')).c_str(), "1");
    EXPECT_NO_THROW(ListPackage(folder_, "App"));
    Put((folder + "/" + std::string(90, 'b')).c_str(), "1");
    EXPECT_THROW(ListPackage(folder_, "App"), Failure);
}

TEST_F(PackageContentTest, RefusesAFolderThatDoesNotExist) {
    EXPECT_THROW(ListPackage(folder_ / "none", "App"), Failure);
}

#ifndef _WIN32
TEST_F(PackageContentTest, RefusesNamesThatWindowsDoesNotDistinguish) {
    Put("a.txt", "1");
    Put("A.TXT", "1");
    EXPECT_THROW(ListPackage(folder_, "App"), Failure);
}

TEST_F(PackageContentTest, RefusesNamesThatAreNotPossibleOnWindows) {
    Put("a\"b.txt", "1");
    EXPECT_THROW(ListPackage(folder_, "App"), Failure);
}
#endif

}  // namespace
}  // namespace tarn::tools
