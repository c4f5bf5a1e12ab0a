// What main receives on a real runtime: arguments, options, variables.

#include <algorithm>

#include "tests/support/paths.h"
#include "tests/support/real_runtime_fixture.h"

namespace tarn::test {
namespace {

using testing::ElementsAre;

class RealRuntimeArguments : public EachRuntimeFixture {};
INSTANTIATE_TEST_SUITE_P(Java, RealRuntimeArguments, kAllRuntimes, RuntimeName);

TEST_P(RealRuntimeArguments, ReachMainUnitByUnit) {
    // A surrogate pair, halves of one, quotes inside a word, a tab, a backslash before a quote.
    const std::wstring emoji = L"smile\xD83D\xDE00";
    const std::wstring halves = L"\xDE00half\xD83D";
    // Windows removes quotes at both ends of a value; this value keeps them.
    settings.Application(L"Cmd", L"\"from the settings\" \"\"   \"\" last\x20AC");
    ASSERT_EQ(Run(emoji + L"  " + halves + L" \"two words\"   in\"side \"\" tab\tstays " +
                  L"\"C:\\dir\\\" \x65E5\x672C\x8A9E -nosplash /nosplash \"open end"),
              0);
    EXPECT_THAT(Report().All("argument"),
                ElementsAre(emoji, halves, L"two words", L"in\"side", L"", L"tab\tstays",
                            L"C:\\dir\\", L"\x65E5\x672C\x8A9E", L"-nosplash", L"/nosplash",
                            L"open end", L"from the settings", L"last\x20AC"));
}

TEST_P(RealRuntimeArguments, AreAnEmptyArrayByDefault) {
    ASSERT_EQ(Run(), 0);
    EXPECT_EQ(Report().One("argumentCount"), L"0");
}

TEST_P(RealRuntimeArguments, MayBeAThousand) {
    std::vector<std::wstring> expected;
    std::wstring text;
    for (int i = 0; i < 1000; ++i) {
        expected.push_back(L"argument " + std::to_wstring(i));
        text += L'"' + expected.back() + L"\" ";
    }
    ASSERT_EQ(Run(text), 0);
    EXPECT_EQ(Report().All("argument"), expected);
}

class RealRuntimeEnvironment : public EachRuntimeFixture {};
INSTANTIATE_TEST_SUITE_P(Java, RealRuntimeEnvironment, kAllRuntimes, RuntimeName);

TEST_P(RealRuntimeEnvironment, FollowsTheSettings) {
    const std::wstring oldPath = L"C:\\windows\\system32;C:\\windows";
    app.environment[L"Path"] = oldPath;
    app.environment[L"TARN_PROBE"] = L"pro be";
    settings.Runtime(L"System Path", L"C:\\front");
    settings.Runtime(L"Library Path", L"C:\\native;");
    settings.Runtime(L"Virtual Machine Parameters",
                     L"-Dplain=a -Dquoted=\"b c\"  -Dexpanded=%TARN_PROBE% -Dumlaut=\xC4\xE9 "
                     L"-Xmx32m");
    ASSERT_EQ(Run(L"do:facts do:property:plain do:property:quoted do:property:expanded "
                  L"do:property:umlaut"),
              0);

    const JavaReport report = Report();
    EXPECT_EQ(report.One("environment:Path"), L"C:\\front;" + oldPath + L';' + home + L"\\bin");
    EXPECT_EQ(report.One("environment:TARN_JVM_PATH"), jvmPath);
    EXPECT_EQ(report.One("environment:TARN_JVM_HOME"), home);
    EXPECT_EQ(report.One("property:plain"), L"a");
    EXPECT_EQ(report.One("property:quoted"), L"b c");
    EXPECT_EQ(report.One("property:expanded"), L"pro be");
    EXPECT_EQ(report.One("property:umlaut"), L"\xC4\xE9");
    // Concatenated, without a separator before the last one.
    const std::wstring libraryPath =
        L"C:\\native;" + app.folder() + L";.;" + oldPath + home + L"\\lib";
    EXPECT_EQ(report.One("libraryPath"), libraryPath);
    EXPECT_EQ(report.One("classPath"), GetPaths().javaFixtures + L';');
    // The runtime does not list the class path among the options.
    EXPECT_THAT(
        report.All("jvmArgument"),
        ElementsAre(L"-Djava.library.path=" + libraryPath, L"-Dplain=a", L"-Dquoted=b c",
                    L"-Dexpanded=pro be", L"-Dumlaut=\xC4\xE9", L"-Xmx32m", L"abort", L"exit"));
    EXPECT_EQ(report.One("directory"), app.directory.substr(0, app.directory.size() - 1));
}

TEST_P(RealRuntimeEnvironment, RunsMainOnTheMainThreadOfJava) {
    ASSERT_EQ(Run(L"do:facts"), 0);
    const JavaReport report = Report();
    EXPECT_EQ(report.One("threadName"), L"main");
    EXPECT_EQ(report.One("threadGroup"), L"main");
    EXPECT_EQ(report.One("contextClassLoader"), L"set");
    EXPECT_EQ(report.One("outermostFrame"), L"fixture.Application.main");
    EXPECT_EQ(report.One("javaVersion").substr(0, 2), FromUtf8(GetParam()));
}

TEST_P(RealRuntimeEnvironment, PathEndsWithTheRuntimesFolder) {
    // Without the folder in Path, a runtime with a compressed image would crash: it loads its
    // zip.dll by name.
    app.environment[L"Path"] = L"C:\\windows\\system32";
    ASSERT_EQ(Run(L"do:environment:Path"), 0);
    EXPECT_EQ(Report().One("environment:Path"), L"C:\\windows\\system32;" + home + L"\\bin");
}

class RealRuntimeFolders : public RealRuntimeFixture {};

TEST_F(RealRuntimeFolders, OverrideWorkingDirStartsInTheApplicationsFolder) {
    UseRuntime("21");
    settings.Application(L"Override WorkingDir", L"yes");
    ASSERT_EQ(Run(L"do:facts"), 0);
    EXPECT_EQ(Report().One("directory"), app.folder().substr(0, app.folder().size() - 1));
}

TEST_F(RealRuntimeFolders, JvmTypeChoosesBetweenClientAndServer) {
    UseRuntime("11");
    ASSERT_EQ(Run(L"do:facts"), 0);
    EXPECT_THAT(ToUtf8(Report().One("vmName")), testing::HasSubstr("Client VM"));
    settings.Runtime(L"JVM Type", L"server");
    ASSERT_EQ(Run(L"do:facts"), 0);
    EXPECT_THAT(ToUtf8(Report().One("vmName")), testing::HasSubstr("Server VM"));
    EXPECT_EQ(Report().One("environment:TARN_JVM_PATH"), home + L"\\bin\\server\\jvm.dll");
}

}  // namespace
}  // namespace tarn::test
