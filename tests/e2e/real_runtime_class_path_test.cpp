// Classes of a real application: their location and the settings for it.

#include "base/windows.h"
#include "tests/support/paths.h"
#include "tests/support/real_runtime_fixture.h"

namespace tarn::test {
namespace {

using testing::HasSubstr;
using testing::Not;

class RealRuntimeClassPath : public EachRuntimeFixture {
  protected:
    std::string FixturesJar() const { return ReadFileBytes(GetPaths().javaFixtures); }

    void SetClassPath(std::wstring_view value) {
        settings.Set(L"Class Path", L"Class Path", value);
    }
};
INSTANTIATE_TEST_SUITE_P(Java, RealRuntimeClassPath, kAllRuntimes, RuntimeName);

TEST_P(RealRuntimeClassPath, RelativeEntriesAreBesideTheApplication) {
    app.AddFile(L"lib\\fixtures.jar", FixturesJar());
    SetClassPath(L";no such.jar;lib\\fixtures.jar;");
    ASSERT_EQ(Run(L"do:facts"), 0);
    EXPECT_EQ(Report().One("classPath"), app.Path(L"lib\\fixtures.jar;"));
}

TEST_P(RealRuntimeClassPath, WildcardsFindTheJars) {
    app.AddFile(
        L"l\xEF"
        L"b\\an application.jar",
        FixturesJar());
    app.AddFile(
        L"l\xEF"
        L"b\\read me.txt",
        "no jar");
    SetClassPath(
        L"l\xEF"
        L"b\\*.jar");
    ASSERT_EQ(Run(L"do:facts"), 0);
    EXPECT_EQ(Report().One("classPath"), app.Path(L"l\xEF"
                                                  L"b\\an application.jar;"));
}

TEST_P(RealRuntimeClassPath, AWildcardForEverythingAlsoYieldsTheFolderItself) {
    app.AddFile(L"lib\\fixtures.jar", FixturesJar());
    SetClassPath(app.Path(L"lib\\*"));
    ASSERT_EQ(Run(L"do:facts"), 0);
    EXPECT_EQ(Report().One("classPath"),
              app.Path(L"lib\\.;") + app.Path(L"lib\\..;") + app.Path(L"lib\\fixtures.jar;"));
}

TEST_P(RealRuntimeClassPath, EmbeddedJarIsTheExecutable) {
    const std::string executable = ReadFileBytes(app.Executable());
    WriteFileBytes(app.Executable(), executable + FixturesJar());
    SetClassPath(L"");
    settings.Application(L"Embedded Jar", L"yes");
    ASSERT_EQ(Run(L"do:facts"), 0);
    EXPECT_EQ(Report().One("classPath"), app.Executable() + L';');
}

// The empty element at the end of the class path.
TEST_P(RealRuntimeClassPath, AClassInTheCurrentDirectoryIsReadUnlessThatIsTheLaunchersFolder) {
    app.directory = app.AddFolder(L"downloads");
    app.AddFile(L"downloads\\Planted.class", "no class");
    settings.Runtime(L"Main Class", L"Planted");
    EXPECT_EQ(Run(), 1);
    EXPECT_THAT(StandardError(), HasSubstr("ClassFormatError"));
    DeleteFileW(app.ErrorFile().c_str());
    settings.Application(L"Override WorkingDir", L"Yes");
    EXPECT_EQ(Run(), 1);
    EXPECT_THAT(StandardError(), HasSubstr("Could not find or load main class Planted"));
    EXPECT_THAT(StandardError(), Not(HasSubstr("ClassFormatError")));
}

class RealRuntimeLongClassPath : public RealRuntimeFixture {};

TEST_F(RealRuntimeLongClassPath, MayHaveAThousandEntries) {
    UseRuntime("25");
    std::wstring value;
    for (int i = 0; i < 999; ++i) value += L"C:\\none\\" + std::to_wstring(i) + L".jar;";
    settings.Set(L"Class Path", L"Class Path", value + GetPaths().javaFixtures);
    ASSERT_EQ(Run(L"do:facts"), 0);
    EXPECT_EQ(Report().One("classPath"), value + GetPaths().javaFixtures + L';');
}

}  // namespace
}  // namespace tarn::test
