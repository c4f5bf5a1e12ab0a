#include "runtime/further_sources.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "runtime/registry_search.h"

namespace tarn {
namespace {

std::vector<FurtherSource> SourcesOf(std::wstring_view text) {
    std::vector<FurtherSource> sources;
    while (const auto source = TakeFurtherSource(text)) sources.push_back(*source);
    return sources;
}

TEST(FurtherSourcesTest, AreReadInTheOrderWritten) {
    using enum FurtherSource;
    EXPECT_EQ(SourcesOf(L"vendors;user;java_home;path;folders"),
              (std::vector{Vendors, User, JavaHome, Path, Folders}));
    EXPECT_EQ(SourcesOf(L"path;vendors"), (std::vector{Path, Vendors}));
}

TEST(FurtherSourcesTest, IgnoreSpacesCaseAndUnknownWords) {
    using enum FurtherSource;
    EXPECT_EQ(SourcesOf(L" Folders ;maker;; PATH"), (std::vector{Folders, Path}));
    for (const wchar_t* const text : {L"", L";", L" ; ", L"vendors user", L"vendor", L"vendors,"}) {
        EXPECT_TRUE(SourcesOf(text).empty()) << text;
    }
}

/// The form that the search uses; empty for a folder that is rejected.
std::wstring DriveFolder(std::wstring text) {
    text.push_back(L'\0');
    return MakeDriveFolder(text.data()) ? text.c_str() : L"";
}

TEST(DriveFolderTest, HasBackslashesAlsoAtItsEnd) {
    EXPECT_EQ(DriveFolder(L"C:\\Java"), L"C:\\Java\\");
    EXPECT_EQ(DriveFolder(L"C:\\Java\\"), L"C:\\Java\\");
    EXPECT_EQ(DriveFolder(L"c:/Program Files/Java/"), L"c:\\Program Files\\Java\\");
    EXPECT_EQ(DriveFolder(L"C:\\"), L"C:\\");
    EXPECT_EQ(DriveFolder(L"C:"), L"C:\\");
}

TEST(DriveFolderTest, HasNoQuotes) {
    EXPECT_EQ(DriveFolder(L"\"C:\\Program Files\\Java\""), L"C:\\Program Files\\Java\\");
    EXPECT_EQ(DriveFolder(L"\"\"\""), L"");
}

TEST(DriveFolderTest, IsAnAbsolutePathOnADrive) {
    for (const wchar_t* const text :
         {L"", L"C", L"Java", L"C:Java", L"\\Java", L"\\\\server\\share", L"//server/share",
          L"\\\\?\\C:\\Java", L"%JAVA_HOME%"}) {
        EXPECT_EQ(DriveFolder(text), L"") << text;
    }
}

TEST(MakerPlacesTest, HaveAKeyForEachLayout) {
    for (const MakerPlace& place : MakerPlaces()) {
        EXPECT_EQ(std::string_view(place.key).empty(), place.layout == KeyLayout::None);
        EXPECT_FALSE(std::string_view(place.key).empty() && std::string_view(place.folder).empty());
    }
}

TEST(MakerPlacesTest, OneMakerInstallsBelowTheUsersPrograms) {
    std::vector<std::string> folders;
    for (const MakerPlace& place : MakerPlaces()) {
        if (place.perUser) folders.emplace_back(place.folder);
    }
    EXPECT_EQ(folders, std::vector<std::string>{"Eclipse Adoptium"});
}

RuntimeSearchPolicy Bounds(std::wstring_view minimum, std::wstring_view maximum) {
    RuntimeSearchPolicy policy;
    policy.minimum = MinimumBound(minimum);
    policy.maximum = MaximumBound(maximum);
    return policy;
}

TEST(HasNoBoundsTest, NeedsAnOpenMaximumAndNoMinimum) {
    EXPECT_TRUE(HasNoBounds(Bounds(L"any", L"any")));
    EXPECT_TRUE(HasNoBounds(Bounds(L"", L"any")));
    EXPECT_FALSE(HasNoBounds(Bounds(L"", L"")));
    EXPECT_FALSE(HasNoBounds(Bounds(L"1.1", L"any")));
    EXPECT_FALSE(HasNoBounds(Bounds(L"any", L"60000")));
}

TEST(JavaVersionInTest, IsTheValueOfItsOwnLine) {
    EXPECT_EQ(JavaVersionIn("IMPLEMENTOR=\"x\"\nJAVA_VERSION=\"17.0.9\"\nOS_NAME=y"), "\"17.0.9\"");
    EXPECT_EQ(JavaVersionIn("JAVA_VERSION=1.8.0_392"), "1.8.0_392");
    EXPECT_EQ(JavaVersionIn("JAVA_VERSION_DATE=\"2023\"\n# JAVA_VERSION=1\nJAVA_VERSION=2\n"), "2");
    for (const char* const text : {"", "\n", "\n\n", "JAVA_VERSION", "XJAVA_VERSION=1"}) {
        EXPECT_EQ(JavaVersionIn(text), "");
    }
}

}  // namespace
}  // namespace tarn
