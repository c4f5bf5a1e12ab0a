#include "tools/wrap/manifest_options.h"

#include <gmock/gmock.h>

namespace tarn::tools {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ManifestOptionsTest : public testing::Test {
  protected:
    std::vector<std::string> Options(const PossibleRuntimes& runtimes,
                                     const std::string& mainModule = {}) {
        return ManifestOptions(Manifest::Parse("Add-Opens: java.base/java.lang java.base/java.io\n"
                                               "Add-Exports: java.base/sun.misc\n"
                                               "Enable-Native-Access: ALL-UNNAMED\n"),
                               runtimes, mainModule, warnings_);
    }

    std::vector<std::string> warnings_;
};

TEST_F(ManifestOptionsTest, ReplaceTheAttributesOfJavaJar) {
    EXPECT_THAT(Options({17, false}), ElementsAre("--add-exports=java.base/sun.misc=ALL-UNNAMED",
                                                  "--add-opens=java.base/java.lang=ALL-UNNAMED",
                                                  "--add-opens=java.base/java.io=ALL-UNNAMED",
                                                  "--enable-native-access=ALL-UNNAMED"));
    EXPECT_THAT(warnings_, IsEmpty());
    EXPECT_THAT(ManifestOptions(Manifest(), {17, false}, "", warnings_), IsEmpty());
}

TEST_F(ManifestOptionsTest, ApplyToTheMainModule) {
    EXPECT_THAT(Options({17, true}, "demo.app"),
                testing::Contains("--add-opens=java.base/java.io=ALL-UNNAMED,demo.app"));
}

TEST_F(ManifestOptionsTest, AreIgnoredByOlderRuntimesThatMayBeInstalled) {
    for (const int oldest : {0, 8, 11, 16}) {
        const std::vector<std::string> options = Options({oldest, false});
        ASSERT_EQ(options.size(), 5U);
        EXPECT_EQ(options[0], "-XX:+IgnoreUnrecognizedVMOptions");
    }
    EXPECT_THAT(warnings_, IsEmpty());
}

TEST_F(ManifestOptionsTest, AreOmittedForAShippedRuntimeThatDoesNotKnowThem) {
    EXPECT_EQ(Options({11, true}).size(), 3U);
    EXPECT_THAT(warnings_, ElementsAre(HasSubstr("Enable-Native-Access of the manifest is omitted: "
                                                 "the runtime is Java 11")));
}

}  // namespace
}  // namespace tarn::tools
