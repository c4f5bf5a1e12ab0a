#include "settings/settings_paths.h"

#include <gtest/gtest.h>

namespace tarn {
namespace {

TEST(SettingsPathsTest, TheSettingsFileHasTheProgramsName) {
    EXPECT_EQ(SettingsPathOf(L"C:\\Apps\\sample.exe"), L"C:\\Apps\\sample.ini");
    EXPECT_EQ(SettingsPathOf(L"C:\\Apps\\my.sample.EXE"), L"C:\\Apps\\my.sample.ini");
    EXPECT_EQ(SettingsPathOf(L"C:\\Apps\\sample."), L"C:\\Apps\\sample.ini");
}

TEST(SettingsPathsTest, ADotInAFolderCountsWhenTheProgramHasNone) {
    EXPECT_EQ(SettingsPathOf(L"C:\\Apps.d\\sample"), L"C:\\Apps.ini");
}

TEST(SettingsPathsTest, WithoutAnyDotThereIsNoSettingsFile) {
    EXPECT_EQ(SettingsPathOf(L"C:\\Apps\\sample"), std::nullopt);
    EXPECT_EQ(SettingsPathOf(L""), std::nullopt);
}

TEST(SettingsPathsTest, ThePerUserFileIsBelowProductNameAndCode) {
    const PerUserPath path =
        PerUserPathOf(L"C:\\Users\\x\\AppData", L"Sample", L"42", L"C:\\Apps\\sample.exe");
    EXPECT_EQ(path.ProductFolder(), L"C:\\Users\\x\\AppData\\Sample");
    EXPECT_EQ(path.CodeFolder(), L"C:\\Users\\x\\AppData\\Sample\\42");
    EXPECT_EQ(path.file, L"C:\\Users\\x\\AppData\\Sample\\42\\sample.ini");
}

TEST(SettingsPathsTest, CharactersInvalidInAFolderNameAreRemovedFromTheProductName) {
    EXPECT_EQ(PerUserPathOf(L"", L"A/B: C?", L"", L"").ProductFolder(), L"\\AB C");
    EXPECT_EQ(PerUserPathOf(L"", L"\\?\"|><:/*", L"", L"").ProductFolder(), L"\\");
}

TEST(SettingsPathsTest, TheProductCodeIsUsedUnchanged) {
    EXPECT_EQ(PerUserPathOf(L"", L"N", L"a\\b", L"").CodeFolder(), L"\\N\\a\\b");
}

TEST(SettingsPathsTest, OnlyTheExtensionOfTheFileNameIsRemoved) {
    EXPECT_EQ(PerUserPathOf(L"D", L"N", L"C", L"C:\\a.b\\sample").file, L"D\\N\\C\\sample.ini");
    EXPECT_EQ(PerUserPathOf(L"D", L"N", L"C", L"C:\\a\\my.app.exe").file, L"D\\N\\C\\my.app.ini");
}

TEST(SettingsPathsTest, WithoutApplicationDataThePathBeginsWithABackslash) {
    EXPECT_EQ(PerUserPathOf(L"", L"", L"", L"sample.exe").file, L"\\\\\\sample.ini");
}

}  // namespace
}  // namespace tarn
