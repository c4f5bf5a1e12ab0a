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

JarFacts FactsOf(const ZipOf& zip, std::vector<std::string>& warnings,
                 const std::string& mainClass = {}) {
    const Bytes content = zip.Content();
    return ReadJarFacts(JarFile(content, "app.jar"), mainClass, warnings);
}

TEST(JarFactsTest, ReadsTheManifest) {
    std::vector<std::string> warnings;
    const JarFacts facts =
        FactsOf(ZipOf().Add("META-INF/MANIFEST.MF",
                            "Main-Class: a.Main\nImplementation-Title: App\nBundle-Version: 2.1\n"
                            "Implementation-Vendor: Maker\nSplashScreen-Image: a/splash.png\n"),
                warnings);
    EXPECT_EQ(facts.mainClass, "a.Main");
    EXPECT_EQ(facts.title, "App");
    EXPECT_EQ(facts.version, "2.1");
    EXPECT_EQ(facts.vendor, "Maker");
    EXPECT_EQ(facts.splashEntry, "a/splash.png");
    EXPECT_EQ(facts.manifest.Get("Main-Class"), "a.Main");
    EXPECT_THAT(warnings, IsEmpty());
}

TEST(JarFactsTest, WarnsAboutAnAgent) {
    std::vector<std::string> warnings;
    FactsOf(ZipOf().Add("META-INF/MANIFEST.MF", "Main-Class: a.B\nLauncher-Agent-Class: a.C\n"),
            warnings);
    EXPECT_THAT(warnings, ElementsAre(HasSubstr("-javaagent")));
}

TEST(JarFactsTest, RequiresAMainClass) {
    std::vector<std::string> warnings;
    EXPECT_THROW(FactsOf(ZipOf().Add("a", "b"), warnings), Failure);
    EXPECT_THROW(FactsOf(ZipOf().Add("META-INF/MANIFEST.MF", "A: b\n"), warnings), Failure);
    EXPECT_EQ(FactsOf(ZipOf().Add("a", "b"), warnings, "x.Y").mainClass, "x.Y");
    const ZipOf both = ZipOf().Add("META-INF/MANIFEST.MF", "Main-Class: a.B\n");
    EXPECT_EQ(FactsOf(both, warnings, "x.Y").mainClass, "x.Y");
}

}  // namespace
}  // namespace tarn::tools
