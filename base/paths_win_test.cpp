#include "base/paths.h"

#include <gtest/gtest.h>

namespace tarn {
namespace {

TEST(PathsWinTest, FindsFilesAndFolders) {
    const std::wstring program = *ModulePath();
    EXPECT_TRUE(FileExists(program));
    EXPECT_TRUE(FileExists(L"C:\\windows"));
    EXPECT_FALSE(FileExists(program + L".none"));
    EXPECT_FALSE(FileExists(L""));
}

TEST(PathsWinTest, TheModuleFolderEndsWithABackslash) {
    const std::wstring folder = *ModuleFolder();
    EXPECT_EQ(folder.back(), L'\\');
    EXPECT_EQ(ModulePath()->substr(0, folder.size()), folder);
}

}  // namespace
}  // namespace tarn
