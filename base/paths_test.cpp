#include "base/paths.h"

#include <gtest/gtest.h>

namespace tarn {
namespace {

TEST(PathsTest, ADriveOrTwoBackslashesMakeAPathAbsolute) {
    EXPECT_TRUE(IsAbsolutePath(L"C:\\a"));
    EXPECT_TRUE(IsAbsolutePath(L"c:"));
    EXPECT_TRUE(IsAbsolutePath(L"\\\\server\\share"));
    EXPECT_FALSE(IsAbsolutePath(L"\\a"));
    EXPECT_FALSE(IsAbsolutePath(L"a"));
    EXPECT_FALSE(IsAbsolutePath(L""));
    EXPECT_FALSE(IsAbsolutePath(L"//server/share"));
}

TEST(PathsTest, TheFolderOfAFileEndsWithItsBackslash) {
    EXPECT_EQ(FolderOf(L"C:\\Apps\\sample.exe"), L"C:\\Apps\\");
    EXPECT_EQ(FolderOf(L"sample.exe"), L"");
}

}  // namespace
}  // namespace tarn
