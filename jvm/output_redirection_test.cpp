#include "jvm/output_redirection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tarn {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::wstring> Folders(std::wstring_view name) {
    std::vector<std::wstring> folders;
    for (std::size_t length = 0;;) {
        length = NextFolderLevel(name, length);
        if (length == std::wstring_view::npos) return folders;
        folders.emplace_back(name.substr(0, length));
    }
}

TEST(FolderLevels, AreListedFromTheDriveDown) {
    EXPECT_THAT(Folders(L"C:\\a\\b\\out.txt"), ElementsAre(L"C:\\a", L"C:\\a\\b"));
}

TEST(FolderLevels, FileInTheDrivesRootHasNone) {
    EXPECT_THAT(Folders(L"C:\\out.txt"), IsEmpty());
    EXPECT_THAT(Folders(L"C:out.txt"), IsEmpty());
    EXPECT_THAT(Folders(L"C:"), IsEmpty());
    EXPECT_THAT(Folders(L"C:\\"), IsEmpty());
}

TEST(FolderLevels, FolderRelativeToTheDriveIsOne) {
    EXPECT_THAT(Folders(L"C:a\\out.txt"), ElementsAre(L"C:a"));
}

TEST(FolderLevels, BothSeparatorsCount) {
    EXPECT_THAT(Folders(L"C:/a/b\\out.txt"), ElementsAre(L"C:/a", L"C:/a/b"));
    EXPECT_THAT(Folders(L"\\\\server/share/a/out.txt"), ElementsAre(L"\\\\server/share/a"));
}

TEST(FolderLevels, RunsOfSeparatorsCountAsOne) {
    EXPECT_THAT(Folders(L"C:\\\\a\\/b\\\\out.txt"), ElementsAre(L"C:\\\\a", L"C:\\\\a\\/b"));
}

TEST(FolderLevels, NameThatEndsInASeparatorIsAllFolders) {
    EXPECT_THAT(Folders(L"C:\\a\\b\\"), ElementsAre(L"C:\\a", L"C:\\a\\b"));
}

TEST(FolderLevels, AnEmptyDriveAfterAPrefixIsSkipped) {
    EXPECT_THAT(Folders(L"\\\\?\\\\a\\out.txt"), ElementsAre(L"\\\\?\\\\a"));
}

TEST(FolderLevels, ServerAndShareAreNotCreated) {
    EXPECT_THAT(Folders(L"\\\\server\\share\\a\\b\\out.txt"),
                ElementsAre(L"\\\\server\\share\\a", L"\\\\server\\share\\a\\b"));
    EXPECT_THAT(Folders(L"\\\\server\\share\\out.txt"), IsEmpty());
    EXPECT_THAT(Folders(L"\\\\server\\out.txt"), IsEmpty());
    EXPECT_THAT(Folders(L"\\\\server"), IsEmpty());
    EXPECT_THAT(Folders(L"\\\\"), IsEmpty());
}

TEST(FolderLevels, PrefixesOfLongPathsAreNotCreated) {
    EXPECT_THAT(Folders(L"\\\\?\\C:\\a\\out.txt"), ElementsAre(L"\\\\?\\C:\\a"));
    EXPECT_THAT(Folders(L"\\\\.\\C:\\a\\out.txt"), ElementsAre(L"\\\\.\\C:\\a"));
    EXPECT_THAT(Folders(L"\\\\?\\UNC\\server\\share\\a\\out.txt"),
                ElementsAre(L"\\\\?\\UNC\\server\\share\\a"));
    EXPECT_THAT(Folders(L"\\\\?\\Volume{1}\\a\\out.txt"), ElementsAre(L"\\\\?\\Volume{1}\\a"));
    EXPECT_THAT(Folders(L"\\\\?\\"), IsEmpty());
    EXPECT_THAT(Folders(L"\\\\?\\UNC\\server"), IsEmpty());
}

TEST(FolderLevels, HugeNameHasAllItsLevels) {
    std::wstring name = L"C:\\";
    while (name.size() < 32'000) name += L"a\\";
    EXPECT_EQ(Folders(name).size(), (name.size() - 3) / 2);
}

}  // namespace
}  // namespace tarn
