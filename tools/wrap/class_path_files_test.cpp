#include "tools/wrap/class_path_files.h"

#include <gmock/gmock.h>

#include "tools/common/failure.h"
#include "tools/common/folder_fixture.h"
#include "tools/java/zip_of.h"

namespace tarn::tools {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ClassPathFiles : public FolderTest {
  protected:
    std::filesystem::path PutJar(const char* name, const std::string& classPath) const {
        return Put(
            name, ZipOf().Add("META-INF/MANIFEST.MF", "Class-Path: " + classPath + "\n").Content());
    }

    std::vector<std::string> Collect(const std::vector<std::filesystem::path>& more = {}) {
        const Bytes content = ReadWholeFile(folder_ / "in/app.jar");
        const JarFile jar(content, folder_ / "in/app.jar");
        files_ = CollectClassPath(jar, more, warnings_);
        std::vector<std::string> targets;
        for (const ClassPathFile& file : files_) targets.push_back(file.target);
        return targets;
    }

    std::vector<ClassPathFile> files_;
    std::vector<std::string> warnings_;
};

TEST_F(ClassPathFiles, FollowsTheManifestsOfReferencedJars) {
    PutJar("in/app.jar", "lib/a.jar lib/b%20c.jar");
    PutJar("in/lib/a.jar", "sub/d.jar b%20c.jar ../app.jar");
    PutJar("in/lib/b c.jar", "");
    PutJar("in/lib/sub/d.jar", "");
    EXPECT_THAT(Collect(), ElementsAre("app.jar", "lib/a.jar", "lib/sub/d.jar", "lib/b c.jar"));
    EXPECT_THAT(warnings_, IsEmpty());
}

TEST_F(ClassPathFiles, PlacesFilesFromElsewhereInOneFolder) {
    PutJar("in/app.jar", "../other/x.jar ./y.jar");
    PutJar("other/x.jar", "");
    PutJar("in/y.jar", "");
    EXPECT_THAT(Collect(), ElementsAre("app.jar", "lib/x.jar", "y.jar"));
}

TEST_F(ClassPathFiles, AcceptsFoldersOfClasses) {
    PutJar("in/app.jar", "conf/ ../outside/");
    Put("in/conf/app.properties", "a=b");
    Put("outside/secret", "x");
    EXPECT_THAT(Collect(), ElementsAre("app.jar", "conf"));
    EXPECT_TRUE(files_[1].isFolder);
    EXPECT_THAT(warnings_, ElementsAre(HasSubstr("not below the jar")));
}

TEST_F(ClassPathFiles, ExplainsTheJarsOwnFolder) {
    for (const char* const folder : {".", "./"}) {
        warnings_.clear();
        PutJar("in/app.jar", folder);
        EXPECT_THAT(Collect(), ElementsAre("app.jar"));
        EXPECT_THAT(warnings_, ElementsAre(HasSubstr("the jar's own folder")));
    }
}

TEST_F(ClassPathFiles, WarnsAboutMissingFilesAndUrls) {
    PutJar("in/app.jar", "lib/none.jar https://example.org/x.jar file:/c:/y.jar");
    EXPECT_THAT(Collect(), ElementsAre("app.jar"));
    EXPECT_THAT(warnings_,
                ElementsAre(HasSubstr("lib/none.jar, which does not exist"),
                            HasSubstr("https://example.org"), HasSubstr("file:/c:/y.jar")));
}

TEST_F(ClassPathFiles, AddsTheJarsOfFoldersSortedByName) {
    PutJar("in/app.jar", "lib/b.jar");
    for (const char* const name : {"in/lib/c.jar", "in/lib/b.jar", "in/lib/a.JAR", "one.jar"}) {
        PutJar(name, "");
    }
    Put("in/lib/readme.txt", "no jar");
    EXPECT_THAT(Collect({folder_ / "in/lib", folder_ / "one.jar"}),
                ElementsAre("app.jar", "lib/b.jar", "lib/a.JAR", "lib/c.jar", "lib/one.jar"));
    EXPECT_THROW(Collect({folder_ / "none.jar"}), Failure);
}

TEST_F(ClassPathFiles, RejectsACorruptJar) {
    PutJar("in/app.jar", "x.jar");
    Put("in/x.jar", "no zip");
    EXPECT_THROW(Collect(), Failure);
}

TEST(ClassPathNameTest, RejectsNamesThatWindowsOrTheClassPathForbid) {
    EXPECT_NO_THROW(CheckClassPathName("lib/a b-1.0 (x)\xC3\xA4.jar", "x"));
    for (const char* const name : {"a;b.jar", "a%TEMP%.jar", "50%.jar", "a*.jar", "con.jar"}) {
        EXPECT_THROW(CheckClassPathName(name, "x"), Failure) << name;
    }
}

TEST(DecodedUrlTest, ReplacesPercentEscapes) {
    EXPECT_EQ(DecodedUrl("a%20b%C3%a4%2"), "a b\xC3\xA4%2");
}

}  // namespace
}  // namespace tarn::tools
