#include "tools/wrap/jar_facts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tools/common/failure.h"
#include "tools/java/zip_of.h"

namespace tarn::tools {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::string ClassOf(int major) {
    std::string head("\xCA\xFE\xBA\xBE\0\0\0\0", 8);
    head[7] = static_cast<char>(major);
    return head;
}

JarFacts FactsOf(const ZipOf& zip, std::vector<std::string>& warnings,
                 const std::string& mainClass = {}, const std::string& minimum = {}) {
    const Bytes content = zip.Content();
    return ReadJarFacts(JarFile(content, "app.jar"), mainClass, minimum, warnings);
}

TEST(JarFactsTest, ReadsTheManifest) {
    std::vector<std::string> warnings;
    const JarFacts facts =
        FactsOf(ZipOf()
                    .Add("META-INF/MANIFEST.MF",
                         "Main-Class: a.Main\nImplementation-Title: App\nBundle-Version: 2.1\n"
                         "Implementation-Vendor: Maker\nSplashScreen-Image: a/splash.png\n"
                         "Add-Opens: java.base/java.lang java.base/java.io\n"
                         "Add-Exports: java.base/sun.misc\nEnable-Native-Access: ALL-UNNAMED\n")
                    .Add("a/Main.class", ClassOf(61)),
                warnings);
    EXPECT_EQ(facts.mainClass, "a.Main");
    EXPECT_EQ(facts.title, "App");
    EXPECT_EQ(facts.version, "2.1");
    EXPECT_EQ(facts.vendor, "Maker");
    EXPECT_EQ(facts.splashEntry, "a/splash.png");
    EXPECT_EQ(facts.minimumVersion, "17");
    EXPECT_THAT(facts.vmParameters, ElementsAre("--add-exports=java.base/sun.misc=ALL-UNNAMED",
                                                "--add-opens=java.base/java.lang=ALL-UNNAMED",
                                                "--add-opens=java.base/java.io=ALL-UNNAMED",
                                                "--enable-native-access=ALL-UNNAMED"));
    EXPECT_THAT(warnings, IsEmpty());
}

TEST(JarFactsTest, OmitsOptionsThatTheOldestRuntimeRefuses) {
    const ZipOf zip = ZipOf()
                          .Add("META-INF/MANIFEST.MF",
                               "Main-Class: a.Main\nAdd-Opens: java.base/java.lang\n"
                               "Enable-Native-Access: ALL-UNNAMED\nLauncher-Agent-Class: a.B\n")
                          .Add("a/Main.class", ClassOf(52));
    std::vector<std::string> warnings;
    EXPECT_THAT(FactsOf(zip, warnings).vmParameters, IsEmpty());
    EXPECT_THAT(warnings, ElementsAre(HasSubstr("--min-version 9"), HasSubstr("--min-version 17"),
                                      HasSubstr("-javaagent")));
    warnings.clear();
    EXPECT_THAT(FactsOf(zip, warnings, "", "11").vmParameters,
                ElementsAre("--add-opens=java.base/java.lang=ALL-UNNAMED"));
    EXPECT_THAT(warnings, ElementsAre(HasSubstr("--min-version 17"), HasSubstr("-javaagent")));
}

TEST(JarFactsTest, RequiresAMainClass) {
    std::vector<std::string> warnings;
    EXPECT_THROW(FactsOf(ZipOf().Add("a", "b"), warnings), Failure);
    EXPECT_THROW(FactsOf(ZipOf().Add("META-INF/MANIFEST.MF", "A: b\n"), warnings), Failure);
    EXPECT_EQ(FactsOf(ZipOf().Add("a", "b"), warnings, "x.Y").mainClass, "x.Y");
    const ZipOf both = ZipOf().Add("META-INF/MANIFEST.MF", "Main-Class: a.B\n");
    EXPECT_EQ(FactsOf(both, warnings, "x.Y").mainClass, "x.Y");
    EXPECT_EQ(FactsOf(both, warnings).minimumVersion, "");
}

}  // namespace
}  // namespace tarn::tools
