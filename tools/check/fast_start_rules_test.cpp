#include "tools/check/rules_fixture.h"
#include "tools/common/folder_fixture.h"
#include "tools/java/zip_of.h"

namespace tarn::tools {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr wchar_t kService[] = L"[Application]\nApplication Type=service\n";
constexpr wchar_t kPrefix[] = L"Fast Start=%LOCALAPPDATA%\\Notes\\Notes";

std::wstring Service(const std::wstring& line, const std::wstring& options = {}) {
    return kService + line + L"\n[Java Runtime Environment]\nVirtual Machine Parameters=" + options;
}

TEST(FastStartRulesTest, AcceptsAServiceWithAFileInTheUsersFolder) {
    EXPECT_THAT(Check(CheckFastStart, Service(kPrefix, L"-Xmx1g")), IsEmpty());
}

TEST(FastStartRulesTest, WarnsThatNoArchiveIsWrittenWhenMainReturns) {
    EXPECT_THAT(Check(CheckFastStart, std::wstring(L"[Application]\n") + kPrefix),
                ElementsAre("2 warning archive-not-written"));
    EXPECT_THAT(Check(CheckFastStart, std::wstring(L"[Application]\n") + kPrefix +
                                          L"\n[Java Runtime Environment]\nVM Provider=any"),
                IsEmpty());
    EXPECT_THAT(Check(CheckFastStart,
                      L"[Java Runtime Environment]\nVirtual Machine Parameters="
                      L"-XX:+AutoCreateSharedArchive -XX:SharedArchiveFile=C:\\x.jsa"),
                ElementsAre("2 warning archive-not-written"));
}

TEST(FastStartRulesTest, WarnsAboutARelativeFile) {
    EXPECT_THAT(Check(CheckFastStart, Service(L"Fast Start=notes")),
                ElementsAre("3 warning archive-path"));
    EXPECT_THAT(Check(CheckFastStart, Service(L"", L"-XX:SharedArchiveFile=notes.jsa")),
                ElementsAre("5 warning archive-path"));
}

TEST(FastStartRulesTest, WarnsAboutConflictingOptions) {
    EXPECT_THAT(Check(CheckFastStart, Service(kPrefix, L"-XX:SharedArchiveFile=C:\\x.jsa")),
                ElementsAre("3 warning archive-options"));
    EXPECT_THAT(Check(CheckFastStart, Service(kPrefix, L"-javaagent:C:\\a.jar")),
                ElementsAre("3 warning archive-options"));
    EXPECT_THAT(Check(CheckFastStart, Service(L"",
                                              L"-XX:SharedArchiveFile=C:\\x.jsa "
                                              L"-XX:SharedArchiveFile=C:\\y.jsa")),
                ElementsAre("5 warning archive-options"));
}

TEST(FastStartRulesTest, WarnsAboutModulesThatAreNotListed) {
    EXPECT_THAT(Check(CheckFastStart, Service(kPrefix, L"--module-path=modules")),
                ElementsAre("3 warning archive-stale"));
    EXPECT_THAT(Check(CheckFastStart, Service(kPrefix + std::wstring(L";modules\\x.jar"),
                                              L"--module-path=modules")),
                IsEmpty());
}

class FastStartFilesTest : public FolderTest {
  protected:
    std::vector<std::string> CheckFiles(const std::wstring& text) const {
        Findings findings;
        CheckFastStart(
            CheckedSettings(folder_ / "sample.ini", {IniEncoding::Ascii, text, false}, true),
            findings);
        std::vector<std::string> ids;
        for (const Finding& finding : findings.Sorted()) {
            ids.push_back(std::string(NameOf(finding.severity)) + ' ' + finding.id);
        }
        return ids;
    }
};

TEST_F(FastStartFilesTest, WarnsAboutAShippedRuntimeThatWritesNone) {
    Put("jre64/bin/java.dll", "");
    Put("jre64/release", "JAVA_VERSION=\"11.0.13\"\n");
    EXPECT_THAT(CheckFiles(kService + std::wstring(kPrefix)),
                ElementsAre("warning archive-runtime"));
    Put("jre64/release", "JAVA_VERSION=\"21\"\n");
    EXPECT_THAT(CheckFiles(kService + std::wstring(kPrefix)), IsEmpty());
}

TEST_F(FastStartFilesTest, NotesAShippedRuntimeWithoutItsOwnArchive) {
    Put("jre64/bin/java.dll", "");
    Put("jre64/bin/server/jvm.dll", "");
    EXPECT_THAT(CheckFiles(kService), ElementsAre("note runtime-archive"));
    Put("jre64/bin/server/classes.jsa", "x");
    EXPECT_THAT(CheckFiles(kService), IsEmpty());
}

TEST_F(FastStartFilesTest, NotesAShippedRuntimeWithoutTheArchiveForCompactObjectHeaders) {
    Put("jre64/bin/java.dll", "");
    Put("jre64/bin/server/jvm.dll", "");
    Put("jre64/bin/server/classes.jsa", "x");
    Put("jre64/release", "JAVA_VERSION=\"25.0.1\"\n");
    const std::wstring on = Service(L"", L"-XX:+UseCompactObjectHeaders -Xmx1g");
    EXPECT_THAT(CheckFiles(on), ElementsAre("note runtime-archive"));
    EXPECT_THAT(CheckFiles(Service(L"", L"-Xmx1g")), IsEmpty());
    EXPECT_THAT(
        CheckFiles(Service(L"", L"-XX:+UseCompactObjectHeaders -XX:-UseCompactObjectHeaders")),
        IsEmpty());

    Put("jre64/bin/server/classes_coh.jsa", "x");
    EXPECT_THAT(CheckFiles(on), IsEmpty());
}

TEST_F(FastStartFilesTest, IgnoresCompactObjectHeadersOfARuntimeThatLacksThem) {
    Put("jre64/bin/java.dll", "");
    Put("jre64/bin/server/jvm.dll", "");
    Put("jre64/bin/server/classes.jsa", "x");
    Put("jre64/release", "JAVA_VERSION=\"21.0.5\"\n");
    EXPECT_THAT(CheckFiles(Service(L"", L"-XX:+UseCompactObjectHeaders")), IsEmpty());
}

TEST_F(FastStartFilesTest, WarnsAboutAFolderOfClasses) {
    std::filesystem::create_directories(folder_ / "classes");
    EXPECT_THAT(
        CheckFiles(kService + std::wstring(kPrefix) + L"\n[Class Path]\nClass Path=classes"),
        ElementsAre("warning archive-not-written"));
}

TEST_F(FastStartFilesTest, WarnsAboutAJarThatOnlyAManifestNames) {
    const std::string manifest = "Manifest-Version: 1.0\r\nClass-Path: lib/x.jar\r\n\r\n";
    Put("app.jar", ZipOf().Add("META-INF/MANIFEST.MF", manifest).Content());
    Put("lib/x.jar", ZipOf().Add("x", "x").Content());
    const std::wstring text = kService + std::wstring(kPrefix) + L"\n[Class Path]\nClass Path=";
    EXPECT_THAT(CheckFiles(text + L"app.jar"), ElementsAre("warning archive-stale"));
    EXPECT_THAT(CheckFiles(text + L"app.jar;lib\\*.jar"), IsEmpty());
}

}  // namespace
}  // namespace tarn::tools
