#include <filesystem>

#include "tools/check/rules_fixture.h"
#include "tools/common/whole_file.h"

namespace tarn::tools {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using namespace std::string_view_literals;

/// A folder with an agent and a folder of modules, beside which the settings are.
class JvmFileRulesTest : public testing::Test {
  protected:
    JvmFileRulesTest() {
        std::filesystem::create_directories(folder_ / "mods");
        WriteWholeFile(folder_ / "agent.jar", "x"sv);
    }
    ~JvmFileRulesTest() override { std::filesystem::remove_all(folder_); }

    std::vector<Finding> Find(const std::wstring& options, bool overridesDirectory = true) const {
        Findings findings;
        const std::wstring text = L"[Java Runtime Environment]\nVirtual Machine Parameters=" +
                                  options + L"\n[Application]\nOverride WorkingDir=" +
                                  (overridesDirectory ? L"Yes" : L"No");
        CheckJvmFiles(
            CheckedSettings(folder_ / "sample.ini", {IniEncoding::Ascii, text, false}, true),
            findings);
        return findings.Sorted();
    }

    std::vector<std::string> Ids(const std::wstring& options,
                                 bool overridesDirectory = true) const {
        std::vector<std::string> ids;
        for (const Finding& finding : Find(options, overridesDirectory)) {
            ids.push_back(std::string(NameOf(finding.severity)) + ' ' + finding.id);
        }
        return ids;
    }

    std::filesystem::path folder_ =
        std::filesystem::temp_directory_path() /
        ("tarn jvm files " +
         std::string(testing::UnitTest::GetInstance()->current_test_info()->name()));
};

TEST_F(JvmFileRulesTest, RejectsAMissingAgent) {
    EXPECT_THAT(Ids(L"-javaagent:nosuch.jar"), ElementsAre("error java-agent"));
    EXPECT_THAT(Ids(L"-javaagent:lib\\agent.jar=opt"), ElementsAre("error java-agent"));
    EXPECT_THAT(Ids(L"-javaagent:nosuch.jar", false), ElementsAre("warning java-agent"));
}

TEST_F(JvmFileRulesTest, AcceptsAnAgentThatExists) {
    EXPECT_THAT(Ids(L"-javaagent:agent.jar -javaagent:AGENT.jar=a=b;c -javaagent:./agent.jar"),
                IsEmpty());
    EXPECT_THAT(Ids(L"-javaagent:%AGENTS%\\a.jar -javaagent:\\a.jar"), IsEmpty());
}

TEST_F(JvmFileRulesTest, WarnsAboutMissingModulePathEntries) {
    EXPECT_THAT(Ids(L"--module-path=modules"), ElementsAre("warning module-path"));
    EXPECT_THAT(Ids(L"--module-path=mods;modules;other"),
                ElementsAre("warning module-path", "warning module-path"));
    EXPECT_THAT(Find(L"--module-path=mods:lib")[0].advice, HasSubstr("not with \":\""));
}

TEST_F(JvmFileRulesTest, AcceptsModulePathEntriesThatExist) {
    EXPECT_THAT(Ids(L"--module-path=mods;agent.jar; --upgrade-module-path=MODS"), IsEmpty());
    EXPECT_THAT(Ids(L"--module-path=%JAVAFX%;mods"), IsEmpty());
    EXPECT_THAT(Ids(L"--module-path="), IsEmpty());
}

TEST_F(JvmFileRulesTest, WarnsAboutPathsInTheCurrentDirectory) {
    EXPECT_THAT(Ids(L"-javaagent:agent.jar", false), ElementsAre("warning working-directory"));
    EXPECT_THAT(Ids(L"--module-path=mods", false), ElementsAre("warning working-directory"));
    EXPECT_THAT(Ids(L"-javaagent:%X%\\agent.jar --module-path=%X%", false), IsEmpty());
}

}  // namespace
}  // namespace tarn::tools
