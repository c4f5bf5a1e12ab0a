#include <filesystem>

#include "tools/check/class_path_on_disk.h"
#include "tools/check/rules_fixture.h"
#include "tools/common/text_encoding.h"
#include "tools/common/whole_file.h"
#include "tools/java/zip_of.h"

namespace tarn::tools {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// The first bytes of a class file for Java 17.
constexpr std::string_view kClassFile("\xCA\xFE\xBA\xBE\0\0\0\x3D", 8);

/// An application in its own folder, which the destructor removes.
class ClassPathRules : public testing::Test {
  protected:
    ClassPathRules() {
        std::filesystem::create_directories(folder_ / "Lib");
        PutJar("app.jar", ZipOf().Add("com/example/Main.class", kClassFile).Content());
        PutJar("Lib/other.jar", ZipOf().Add("a/B.class", kClassFile).Content());
    }
    ~ClassPathRules() override { std::filesystem::remove_all(folder_); }

    void PutJar(const char* name, const Bytes& content) { WriteWholeFile(folder_ / name, content); }

    CheckedSettings Settings(const std::wstring& classPath, const std::wstring& more = {}) const {
        return CheckedSettings(folder_ / "sample.ini",
                               {IniEncoding::Ascii,
                                L"[Class Path]\nClass Path=" + classPath +
                                    L"\n[Java Runtime Environment]\nMain Class=com.example.Main\n"
                                    L"Minimum Version=17\n" +
                                    more,
                                false},
                               true);
    }

    std::vector<Finding> Find(const CheckedSettings& settings) const {
        Findings findings;
        CheckClassPath(settings, findings);
        return findings.Sorted();
    }

    std::vector<std::string> Ids(const CheckedSettings& settings) const {
        std::vector<std::string> ids;
        for (const Finding& finding : Find(settings)) {
            ids.push_back(std::to_string(finding.line) + ' ' +
                          std::string(NameOf(finding.severity)) + ' ' + finding.id);
        }
        return ids;
    }

    std::filesystem::path folder_ =
        std::filesystem::temp_directory_path() /
        ("tarn check " +
         std::string(testing::UnitTest::GetInstance()->current_test_info()->name()));
};

TEST_F(ClassPathRules, AcceptsAJarThatContainsTheMainClass) {
    EXPECT_THAT(Ids(Settings(L"app.jar")), IsEmpty());
    EXPECT_THAT(Ids(Settings(L"APP.JAR;lib\\*.jar")), IsEmpty());
    EXPECT_THAT(Ids(Settings(L"lib\\..\\*.jar")), IsEmpty());
}

TEST_F(ClassPathRules, WarnsAboutEntriesThatMatchNothing) {
    EXPECT_THAT(Ids(Settings(L"app.jar;nosuch.jar;lib\\*.zip; app.jar")),
                ElementsAre("2 warning no-match", "2 warning no-match", "2 warning no-match"));
    EXPECT_THAT(Find(Settings(L"app.jar; app.jar"))[0].advice, HasSubstr("spaces"));
    EXPECT_THAT(Find(Settings(L"app.jar;*\\other.jar"))[0].advice, HasSubstr("last name only"));
    EXPECT_THAT(Ids(Settings(L"nosuch.jar")),
                ElementsAre("2 warning no-match", "2 error no-class-path"));
    EXPECT_THAT(Ids(Settings(L"")), ElementsAre("0 error no-class-path"));
}

TEST_F(ClassPathRules, RejectsSlashes) {
    EXPECT_THAT(Ids(Settings(L"app.jar;lib/*.jar")), ElementsAre("2 error slash"));
    EXPECT_EQ(Find(Settings(L"app.jar;lib/*.jar"))[0].advice, "write lib\\*.jar");
}

TEST_F(ClassPathRules, WarnsAboutEntriesSeparatedAsOnOtherSystems) {
    EXPECT_THAT(Ids(Settings(L"app.jar;app.jar:lib/*.jar")), ElementsAre("2 warning no-match"));
    EXPECT_EQ(Find(Settings(L"app.jar;app.jar:lib/*.jar"))[0].advice,
              "separate entries with \";\", not with \":\": app.jar;lib\\*.jar");
    EXPECT_THAT(Find(Settings(L"app.jar;C:\\a.jar:D:\\b.jar"))[0].advice,
                HasSubstr("C:\\a.jar;D:\\b.jar"));
    EXPECT_THAT(Find(Settings(L"app.jar;file:lib/a.jar"))[0].advice, HasSubstr("URL"));
    EXPECT_THAT(Ids(Settings(L"app.jar;%JARS%:x")), IsEmpty());
}

TEST_F(ClassPathRules, ReportsAMainClassThatIsInNoJar) {
    EXPECT_THAT(Ids(Settings(L"lib\\other.jar")), ElementsAre("4 error no-main-class"));
    PutJar("moved.jar", ZipOf().Add("com/acme/Main.class", kClassFile).Content());
    const std::vector<Finding> findings = Find(Settings(L"moved.jar"));
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(findings[0].advice, "did you mean com.acme.Main?");
}

TEST_F(ClassPathRules, SearchesFoldersAndJarsNamedByManifests) {
    PutJar("thin.jar",
           ZipOf().Add("META-INF/MANIFEST.MF", "Class-Path: nosuch.jar app.jar\r\n\r\n").Content());
    EXPECT_THAT(Ids(Settings(L"thin.jar")), IsEmpty());
    std::filesystem::create_directories(folder_ / "classes/com/example");
    WriteWholeFile(folder_ / "classes/com/example/Main.class", kClassFile);
    EXPECT_THAT(Ids(Settings(L"classes")), IsEmpty());
}

TEST_F(ClassPathRules, SearchesTheExecutable) {
    Bytes content = ZipOf().Add("com/example/Main.class", kClassFile).Content();
    content.insert(content.begin(), 1000, std::byte{'M'});
    const std::wstring embedded = L"[Application]\nEmbedded Jar=Yes";
    EXPECT_THAT(Ids(Settings(L"", embedded)), IsEmpty());  // no executable to search yet
    PutJar("sample.exe", content);
    EXPECT_THAT(Ids(Settings(L"", embedded)), IsEmpty());
    PutJar("sample.exe", Bytes(100));
    EXPECT_THAT(Ids(Settings(L"", embedded)), ElementsAre("4 error no-main-class"));
}

TEST_F(ClassPathRules, IgnoresEntriesThatOnlyTheUsersMachineResolves) {
    EXPECT_THAT(Ids(Settings(L"lib\\other.jar;%APP_HOME%\\main.jar")), IsEmpty());
}

TEST_F(ClassPathRules, WarnsAboutCorruptJars) {
    PutJar("app.jar", Bytes(10));
    EXPECT_THAT(Ids(Settings(L"app.jar")),
                ElementsAre("2 warning bad-jar", "4 error no-main-class"));
    EXPECT_THAT(Ids(Settings(L"*.ja?")), ElementsAre("4 error no-main-class"));
}

TEST_F(ClassPathRules, WarnsWhenTheBoundsAdmitAnOlderRuntimeThanTheClassRequires) {
    EXPECT_THAT(
        Ids(CheckedSettings(folder_ / "sample.ini",
                            {IniEncoding::Ascii,
                             L"[Class Path]\nClass Path=app.jar\n[Java Runtime Environment]\n"
                             L"Main Class=com.example.Main\nMinimum Version=11",
                             false},
                            true)),
        ElementsAre("5 warning class-version"));
}

TEST(MainClassNameTest, IsAClassNotAFile) {
    const auto ids = [](const std::wstring& name) {
        return Check(CheckClassPath, L"[Java Runtime Environment]\nMain Class=" + name +
                                         L"\n[Class Path]\nClass Path=a.jar");
    };
    EXPECT_THAT(ids(L"com.example.Main"), IsEmpty());
    EXPECT_THAT(ids(L"com/example/Main"), IsEmpty());
    EXPECT_THAT(ids(L"Main.class"), ElementsAre("2 error main-class-name"));
    EXPECT_THAT(ids(L"com\\example\\Main"), ElementsAre("2 error main-class-name"));
    EXPECT_THAT(ids(L"com.example.Main ; the start"), ElementsAre("2 error main-class-name"));
    EXPECT_THAT(ids(L""), ElementsAre("0 error no-main-class"));
}

TEST_F(ClassPathRules, FindsAsWindowsDoes) {
    const auto names = [&](const wchar_t* pattern) {
        std::vector<std::string> found;
        for (const auto& path : FindAsWindows(folder_, pattern))
            found.push_back(Utf8OfPath(path.filename()));
        return found;
    };
    EXPECT_THAT(names(L"lib\\*"), ElementsAre("other.jar"));
    EXPECT_THAT(names(L"*.*"), ElementsAre("Lib", "app.jar"));
    EXPECT_THAT(names(L"a??.JAR"), ElementsAre("app.jar"));
    EXPECT_THAT(names(L"*p*"), ElementsAre("app.jar"));
    EXPECT_THAT(names(L"l*b\\other.jar"), IsEmpty());
    EXPECT_THAT(names(L""), ElementsAre(Utf8OfPath(folder_.filename())));
}

TEST(CurrentDirectoryRuleTest, WarnsThatItIsOnTheClassPath) {
    EXPECT_THAT(Check(CheckCurrentDirectory, L"[Class Path]\nClass Path=a.jar\n"),
                ElementsAre("2 warning current-directory"));
    EXPECT_THAT(Check(CheckCurrentDirectory, L"[Application]\nEmbedded Jar=Yes\n"),
                ElementsAre("0 warning current-directory"));
    EXPECT_THAT(AdviceOf(CheckCurrentDirectory, L"[Class Path]\nClass Path=a.jar\n"),
                HasSubstr("Override WorkingDir=Yes"));
}

TEST(CurrentDirectoryRuleTest, AcceptsTheApplicationsOwnFolder) {
    EXPECT_THAT(Check(CheckCurrentDirectory,
                      L"[Application]\nOverride WorkingDir=Yes\n[Class Path]\nClass Path=a.jar\n"),
                IsEmpty());
}

TEST(CurrentDirectoryRuleTest, AcceptsAnotherClassPathAndNone) {
    EXPECT_THAT(Check(CheckCurrentDirectory,
                      L"[Class Path]\nClass Path=a.jar\n[Java Runtime Environment]\n"
                      L"Virtual Machine Parameters=-Djava.class.path=b.jar\n"),
                IsEmpty());
    EXPECT_THAT(Check(CheckCurrentDirectory, L"[Class Path]\nClass Path=;;\n"), IsEmpty());
}

}  // namespace
}  // namespace tarn::tools
