#include "tools/java/manifest.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tools/common/failure.h"
#include "tools/java/zip_of.h"

namespace tarn::tools {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ManifestTest, FindsAttributesInAnyCase) {
    const Manifest manifest = Manifest::Parse("Manifest-Version: 1.0\r\nMain-Class: a.Main \r\n");
    EXPECT_EQ(manifest.Get("Main-Class"), "a.Main");
    EXPECT_EQ(manifest.Get("MAIN-class"), "a.Main");
    EXPECT_EQ(manifest.Get("Class-Path"), "");
}

TEST(ManifestTest, JoinsContinuationLinesEvenInsideACharacter) {
    const Manifest manifest = Manifest::Parse(
        "Class-Path: lib/a.jar lib\n /b.jar\n  lib/c.jar\nImplementation-Title: \xC3\n \xA4\n");
    EXPECT_THAT(manifest.GetWords("Class-Path"),
                ElementsAre("lib/a.jar", "lib/b.jar", "lib/c.jar"));
    EXPECT_EQ(manifest.Get("Implementation-Title"), "\xC3\xA4");
}

TEST(ManifestTest, AcceptsThreeLineEnds) {
    const Manifest manifest = Manifest::Parse("A: 1\rB: 2\nC: 3\r\nD: 4");
    EXPECT_EQ(manifest.Get("A") + manifest.Get("B") + manifest.Get("C") + manifest.Get("D"),
              "1234");
}

TEST(ManifestTest, OmitsPerEntrySections) {
    const Manifest manifest = Manifest::Parse("A: 1\n\nName: x/\nA: 2\nMain-Class: b.Other\n");
    EXPECT_EQ(manifest.Get("A"), "1");
    EXPECT_EQ(manifest.Get("Main-Class"), "");
}

TEST(ManifestTest, IgnoresInvalidLines) {
    const Manifest manifest = Manifest::Parse(
        "\xEF\xBB\xBF"
        "A: 1\nnonsense\n continued\nB:2\nC: 3");
    EXPECT_EQ(manifest.Get("A"), "1");
    EXPECT_EQ(manifest.Get("B"), "");
    EXPECT_EQ(manifest.Get("C"), "3");
    EXPECT_THAT(Manifest::Parse("").GetWords("A"), IsEmpty());
    EXPECT_EQ(Manifest::Parse(" \n \n").Get(""), "");
}

TEST(ManifestTest, ReturnsTheFirstAttributeWithAValue) {
    const Manifest manifest = Manifest::Parse("A: \nB: 2\nC: 3\n");
    EXPECT_EQ(manifest.GetFirst({"Z", "A", "B", "C"}), "2");
}

TEST(ManifestTest, IsReadFromItsJar) {
    const Bytes content = ZipOf().Add("META-INF/manifest.mf", "Main-Class: a.B\n").Content();
    EXPECT_EQ(Manifest::Of(JarFile(content, "app.jar")).Get("Main-Class"), "a.B");
    const Bytes without = ZipOf().Add("a", "b").Content();
    EXPECT_THROW(Manifest::Of(JarFile(without, "app.jar")), Failure);
}

}  // namespace
}  // namespace tarn::tools
