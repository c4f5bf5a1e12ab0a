#include "tools/wrap/application_jars.h"

#include <gmock/gmock.h>

#include "tools/common/failure.h"
#include "tools/common/folder_fixture.h"
#include "tools/java/class_of.h"
#include "tools/java/zip_of.h"

namespace tarn::tools {
namespace {

using testing::ElementsAre;

class ApplicationJarsTest : public FolderTest {
  protected:
    ApplicationJar Open(const char* name, const ZipOf& zip) const {
        return ApplicationJar({Put(name, zip.Content()), name});
    }
};

TEST_F(ApplicationJarsTest, RequireTheJavaOfTheirNewestClass) {
    ApplicationJars jars;
    jars.push_back(Open("app.jar", ZipOf()
                                       .Add("a/Main.class", ClassOf("a/Main").Version(8).Content())
                                       .Add("b/C.class", ClassOf("b/C").Version(11).Content())
                                       .Add("broken.class", "text")));
    EXPECT_EQ(OldestJavaOf(jars), 11);
    jars.push_back(Open("b.jar", ZipOf().Add("d/E.class", ClassOf("d/E").Version(17).Content())));
    EXPECT_EQ(OldestJavaOf(jars), 17);
    EXPECT_EQ(OldestJavaOf({}), 0);
}

TEST_F(ApplicationJarsTest, IgnoreClassesThatOnlyNewerVersionsLoad) {
    const std::string newer = ClassOf("a/Main").Version(21).Content();
    const ApplicationJar jar =
        Open("app.jar", ZipOf()
                            .Add("a/Main.class", ClassOf("a/Main").Version(8).Content())
                            .Add("META-INF/versions/21/a/Main.class", newer)
                            .Add("module-info.class", ClassOf::Module("a").Version(9).Content()));
    EXPECT_EQ(jar.OldestJava(), 8);
    EXPECT_THAT(jar.Packages(), ElementsAre("a"));
}

TEST_F(ApplicationJarsTest, MayBeFoldersOfClasses) {
    Put("classes/a/Main.class", ClassOf("a/Main").Version(17).Content());
    ApplicationJars jars;
    jars.emplace_back(ClassPathFile{folder_ / "classes", "classes", true});
    EXPECT_EQ(OldestJavaOf(jars), 17);
    EXPECT_EQ(FindClass(jars, "a/Main"), jars.data());
    EXPECT_EQ(FindClass(jars, "a.Main"), jars.data());
    EXPECT_EQ(FindClass(jars, "a/Other"), nullptr);
    EXPECT_EQ(jars[0].ModuleName(), "");
    EXPECT_EQ(jars[0].ReadStart("a/Main.class", 4).size(), 4U);
}

TEST_F(ApplicationJarsTest, HaveTheModuleNameThatJavaGivesThem) {
    const std::string module = ClassOf::Module("demo.declared").Content();
    EXPECT_EQ(Open("a-1.0.jar", ZipOf().Add("module-info.class", module)).ModuleName(),
              "demo.declared");
    EXPECT_EQ(Open("a-b-1.0.jar", ZipOf().Add("x", "y")).ModuleName(), "a.b");
    EXPECT_EQ(Open("c.jar", ZipOf().Add("META-INF/MANIFEST.MF", "Automatic-Module-Name: demo.c\n"))
                  .ModuleName(),
              "demo.c");
}

TEST_F(ApplicationJarsTest, MayDeclareTheirModuleForNewerVersions) {
    const ZipOf zip =
        ZipOf()
            .Add("META-INF/versions/11/module-info.class", ClassOf::Module("demo.eleven").Content())
            .Add("META-INF/versions/9/module-info.class", ClassOf::Module("demo.nine").Content());
    EXPECT_FALSE(Open("a.jar", zip).Module());
    ZipOf multiRelease = zip;
    multiRelease.Add("META-INF/MANIFEST.MF", "Multi-Release: true\n");
    EXPECT_EQ(Open("a.jar", multiRelease).Module()->name, "demo.nine");
}

TEST_F(ApplicationJarsTest, AreRejectedWhenCorrupt) {
    EXPECT_THROW(ApplicationJar({Put("a.jar", "text"), "a.jar"}), Failure);
}

}  // namespace
}  // namespace tarn::tools
