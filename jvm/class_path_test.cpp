#include "jvm/class_path.h"

#include <gtest/gtest.h>

namespace tarn {
namespace {

using Entries = std::vector<std::wstring>;

TEST(ClassPathTest, EmptyEntriesAreDropped) {
    EXPECT_EQ(ClassPathEntries(L""), Entries{});
    EXPECT_EQ(ClassPathEntries(L";;"), Entries{});
    EXPECT_EQ(ClassPathEntries(L"a.jar;;lib\\*; ;b.jar;"),
              (Entries{L"a.jar", L"lib\\*", L" ", L"b.jar"}));
}

TEST(ClassPathTest, AnAbsoluteEntryWithoutWildcardIsLiteralEntry) {
    EXPECT_TRUE(IsLiteralEntry(L"C:\\lib\\a.jar"));
    EXPECT_TRUE(IsLiteralEntry(L"\\\\server\\share\\a.jar"));
    EXPECT_TRUE(IsLiteralEntry(L"C:\\lib\\a?.jar"));
    EXPECT_FALSE(IsLiteralEntry(L"C:\\lib\\*.jar"));
    EXPECT_FALSE(IsLiteralEntry(L"lib\\a.jar"));
    EXPECT_FALSE(IsLiteralEntry(L"\\lib\\a.jar"));
    EXPECT_FALSE(IsLiteralEntry(L"a"));
    EXPECT_FALSE(IsLiteralEntry(L""));
}

TEST(ClassPathTest, RelativeEntriesAreBelowTheLaunchersFolder) {
    EXPECT_EQ(ClassPathPattern(L"lib\\*.jar", L"C:\\App\\"), L"C:\\App\\lib\\*.jar");
    EXPECT_EQ(ClassPathPattern(L"a", L"C:\\App\\"), L"C:\\App\\a");
    EXPECT_EQ(ClassPathPattern(L"D:\\lib\\*", L"C:\\App\\"), L"D:\\lib\\*");
}

TEST(ClassPathTest, ASingleLeadingBackslashIsRelative) {
    EXPECT_EQ(ClassPathPattern(L"\\lib\\a.jar", L"C:\\App\\"), L"C:\\App\\\\lib\\a.jar");
}

}  // namespace
}  // namespace tarn
