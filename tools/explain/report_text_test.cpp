#include "tools/explain/report_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tools/explain/report_fixture.h"
#include "tools/explain/text_page.h"

namespace tarn::tools {
namespace {

using testing::HasSubstr;
using testing::Not;

class ReportTextTest : public testing::Test {
  protected:
    static std::string Text(const LaunchReport& report) {
        return ReportText(report, Console(stdout, stderr, false, false));
    }
};

TEST_F(ReportTextTest, BeginsWithTheProgramAndTheOutcome) {
    EXPECT_EQ(Text(FullReport()).find("C:\\Apps\\sample.exe\n  Creates the JVM and calls main.\n"),
              0U);
}

TEST_F(ReportTextTest, ShowsWhatTheUserSees) {
    LaunchReport report = FullReport();
    EXPECT_THAT(Text(report), HasSubstr("sees, before the launch continues:\n    No class"));
    report.outcome = {"fails", -1, "The settings cannot be used."};
    report.messages = {{"Two\nlines\n", false}};
    EXPECT_THAT(Text(report),
                HasSubstr("exit code         -1\n  The user sees:\n    Two\n    lines\n"));
    report.outcome.kind = "asks-for-runtime";
    EXPECT_THAT(Text(report), HasSubstr("The user sees the dialog:\n    Two\n"));
}

TEST_F(ReportTextTest, ShowsSettingsWithTheirLayerAndNamesTheOthers) {
    const std::string text = Text(FullReport());
    EXPECT_THAT(text, HasSubstr("  [Application]\n    Failure Check = yes  (file: on)\n"
                                "    Cmd =  b  (additive)\n"));
    EXPECT_THAT(text, HasSubstr("not set: JVM Type (any), JRE Path, Single Instance\n"));
}

TEST_F(ReportTextTest, ShowsTheSearchWithItsReasons) {
    const std::string text = Text(FullReport());
    EXPECT_THAT(text, HasSubstr("  \"JRE Path\": not set\n  Registry: taken\n    C:\\Java\\\n"
                                "    by the preferred version \"17\"\n"));
    EXPECT_THAT(text,
                HasSubstr("    Software\\JavaSoft\\JDK: searched\n      17 (17.0): chosen\n"));
    EXPECT_THAT(
        text,
        HasSubstr("11 (11.0): qualifies, but another one is preferred; the other is newer\n"));
    EXPECT_THAT(text, HasSubstr("1.8 (1.8): older than \"Minimum Version\"\n"));
    EXPECT_THAT(text, HasSubstr("JRE: not searched: excluded by \"JVM Source\"\n"));
}

TEST_F(ReportTextTest, ShowsFurtherSourcesWithEachRuntime) {
    const std::string text = Text(ReportWithFurtherSources());
    EXPECT_THAT(text, HasSubstr("  Further sources: the variable JAVA_HOME (java_home): its "
                                "runtime does not qualify\n"
                                "      JAVA_HOME (17.0.9): its jvm.dll is for another processor or "
                                "damaged\n        D:\\jdk\\\n"));
    EXPECT_THAT(text, HasSubstr("  Further sources: the makers' folders (folders): taken\n"
                                "    C:\\Java\\jdk-21\\\n"
                                "      C:\\Java\\jdk-17 (17.0): qualifies, but another one is "
                                "preferred; the other is newer\n"));
    EXPECT_THAT(text, HasSubstr("      C:\\Java\\jdk-21 (21.0): chosen\n"));
}

TEST_F(ReportTextTest, ShowsWhatJavaGets) {
    const std::string text = Text(FullReport());
    EXPECT_THAT(text, HasSubstr("  option            -Xmx1024K\n"));
    EXPECT_THAT(text, HasSubstr("  argument          b\n"));
    EXPECT_THAT(text, HasSubstr("o_2026.txt (appended)  from o_%yyyy%.txt\n"));
    EXPECT_THAT(text, HasSubstr("1024 KiB (1048576 bytes), from \"-Xss\"\n"));
    EXPECT_THAT(text, HasSubstr("-Xmx1p becomes -Xmx1024K\n"));
    EXPECT_THAT(text, HasSubstr("stays after main until System.exit"));
}

TEST_F(ReportTextTest, ShowsWhatEachVariableWithOptionsDoes) {
    const std::string text = Text(FullReport());
    EXPECT_THAT(text, HasSubstr("  JAVA_TOOL_OPTIONS  -Xmx1g\n    read by the JVM before"));
    EXPECT_THAT(text, HasSubstr("  _JAVA_OPTIONS     -Xmx2g\n    read by the JVM after"));
    EXPECT_THAT(text, HasSubstr("  JDK_JAVA_OPTIONS  -Xmx3g\n    ignored: "));
}

TEST_F(ReportTextTest, SaysWhereToLookWhenNoWindowAppears) {
    LaunchReport report = FullReport();
    EXPECT_THAT(Text(report), HasSubstr("if no window appears, set \"Error File\""));
    report.jvm->outputs.push_back({"error", "e.txt", "C:\\e.txt", false, false});
    EXPECT_THAT(Text(report), HasSubstr("if no window appears, see what Java wrote"));
}

TEST_F(ReportTextTest, ShowsTheDirectoryOnTheClassPath) {
    LaunchReport report = FullReport();
    EXPECT_THAT(Text(report), HasSubstr("  classes also in   C:\\work (the current directory)\n"
                                        "  set \"Override WorkingDir\" to Yes"));
    report.jvm->classPathDirectoryIsOwn = true;
    EXPECT_THAT(Text(report), HasSubstr("C:\\work (the executable's folder)\n"));
    report.jvm->classPathDirectory.clear();
    EXPECT_THAT(Text(report), Not(HasSubstr("classes also in")));
}

TEST_F(ReportTextTest, OmitsPartsThatAreNotReached) {
    const std::string text = Text(LaunchReport());
    for (const char* const heading : {"Java", "Splash", "Single instance", "Settings"}) {
        EXPECT_THAT(text, Not(HasSubstr(std::string("\n") + heading + '\n')));
    }
}

TEST_F(ReportTextTest, ShowsWhyThereIsNoSplash) {
    LaunchReport report;
    report.splash = SplashReport{};
    EXPECT_THAT(Text(report), HasSubstr("none: \"Splash Screen\" is not set\n"));
    report.splash->kind = "suppressed";
    EXPECT_THAT(Text(report), HasSubstr("none: suppressed by an argument\n"));
    report.splash = SplashReport{"own", "s.png", false, false, "no-library"};
    EXPECT_THAT(Text(report), HasSubstr("s.png (not found)\n"));
    EXPECT_THAT(Text(report), HasSubstr("it has no splashscreen.dll\n"));
}

TEST(SizeTextTest, IncludesTheExactNumber) {
    EXPECT_EQ(SizeText(0), "0 bytes");
    EXPECT_EQ(SizeText(10'239), "10239 bytes");
    EXPECT_EQ(SizeText(10'240), "10 KiB (10240 bytes)");
    EXPECT_EQ(SizeText(8'589'934'592), "8192 MiB (8589934592 bytes)");
    EXPECT_EQ(SizeText(~0ULL), "16777215 TiB (18446744073709551615 bytes)");
}

}  // namespace
}  // namespace tarn::tools
