#include "tools/wrap/fast_start_plan.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tools/common/failure.h"
#include "tools/common/folder_fixture.h"

namespace tarn::tools {
namespace {

using testing::HasSubstr;

class FastStartPlanTest : public FolderTest {
  protected:
    FastStartPlanTest() { request_.name = "Notes"; }

    std::string Plan() const { return PlanFastStart(request_, start_, files_); }

    std::string Refusal() const {
        try {
            return "accepted: " + Plan();
        } catch (const Failure& failure) {
            return failure.what();
        }
    }

    WrapRequest request_;
    JavaStart start_;
    std::vector<ClassPathFile> files_ = {{"app.jar", "app.jar"}, {"x.jar", "lib/x.jar"}};
};

TEST_F(FastStartPlanTest, NamesAFileInTheUsersLocalFolder) {
    EXPECT_EQ(Plan(), "%LOCALAPPDATA%\\Notes\\Notes");
}

TEST_F(FastStartPlanTest, AddsTheModulesWhichTheClassPathLacks) {
    files_.push_back({"m.jar", "modules/m.jar", false, Placement::ModulePath});
    files_.push_back({"b.jar", "b.jar", false, Placement::Both});
    EXPECT_EQ(Plan(), "%LOCALAPPDATA%\\Notes\\Notes;modules\\m.jar");
}

TEST_F(FastStartPlanTest, RefusesARuntimeThatWritesNoArchive) {
    request_.runtime = folder_;
    EXPECT_THAT(Refusal(), HasSubstr("no file release"));
    Put("release", "JAVA_VERSION=\"17.0.9\"\n");
    EXPECT_THAT(Refusal(), HasSubstr("is Java 17.0.9"));
    Put("release", "JAVA_VERSION=\"21.0.8\"\n");
    EXPECT_EQ(Plan(), "%LOCALAPPDATA%\\Notes\\Notes");
}

TEST_F(FastStartPlanTest, RefusesWhatNeverWritesAnArchive) {
    request_.endsWith = EndsWith::Main;
    EXPECT_THAT(Refusal(), HasSubstr("--ends-with main"));
    request_.endsWith = EndsWith::Exit;
    files_.push_back({"classes", "classes", true});
    EXPECT_THAT(Refusal(), HasSubstr("classes is a folder"));
}

TEST_F(FastStartPlanTest, RefusesAnotherArchiveInTheOptions) {
    request_.vmParameters = {"-Xmx1g", "-XX:SharedArchiveFile=x.jsa"};
    EXPECT_THAT(Refusal(), HasSubstr("-XX:SharedArchiveFile=x.jsa"));
}

TEST_F(FastStartPlanTest, RefusesOptionsWithWhichJavaWritesNoArchive) {
    request_.vmParameters = {"-Da=b \"-javaagent:lib\\agent.jar\""};
    EXPECT_THAT(Refusal(), HasSubstr("with -javaagent:lib\\agent.jar Java"));
}

TEST_F(FastStartPlanTest, RefusesAnAdministratorsApplication) {
    request_.manifestChanges.requiresAdministrator = true;
    EXPECT_THAT(Refusal(), HasSubstr("administrator"));
}

}  // namespace
}  // namespace tarn::tools
