#include "tools/check/admitted_versions.h"
#include "tools/check/rules_fixture.h"

namespace tarn::tools {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::wstring Java(const std::wstring& lines) {
    return L"[Java Runtime Environment]\n" + lines;
}

TEST(VersionRulesTest, AcceptsBoundsThatAdmitARuntime) {
    EXPECT_THAT(Check(CheckVersions, Java(L"Minimum Version=1.8\nMaximum Version=any")), IsEmpty());
    EXPECT_THAT(Check(CheckVersions, Java(L"Minimum Version=11\nMaximum Version=11")), IsEmpty());
    EXPECT_THAT(Check(CheckVersions, Java(L"Minimum Version=any\nMaximum Version=17.0.2")),
                IsEmpty());
}

TEST(VersionRulesTest, RejectsAMinimumAboveTheMaximum) {
    EXPECT_THAT(Check(CheckVersions, Java(L"Minimum Version=17\nMaximum Version=11")),
                ElementsAre("3 error no-version-fits"));
    // As a number, 8 is above 1.8.
    EXPECT_THAT(Check(CheckVersions, Java(L"Minimum Version=8\nMaximum Version=1.8")),
                ElementsAre("2 warning old-numbering", "3 error no-version-fits"));
}

TEST(VersionRulesTest, WarnsAboutAMissingMaximum) {
    EXPECT_THAT(Check(CheckVersions, Java(L"Minimum Version=11")),
                ElementsAre("0 warning no-maximum"));
    EXPECT_THAT(Check(CheckVersions, Java(L"Minimum Version=11\nMaximum Version=Any")),
                ElementsAre("3 warning version", "3 warning no-maximum"));
    EXPECT_THAT(Check(CheckVersions, Java(L"JRE Path=C:\\jre")), IsEmpty());
}

TEST(VersionRulesTest, WarnsAboutInvalidVersions) {
    const std::wstring open = L"\nMaximum Version=any";
    EXPECT_THAT(Check(CheckVersions, Java(L"Minimum Version=latest" + open)),
                ElementsAre("2 warning version"));
    EXPECT_THAT(Check(CheckVersions, Java(L"Minimum Version=99999999999" + open)),
                ElementsAre("2 warning version"));
    EXPECT_THAT(Check(CheckVersions, Java(L"Minimum Version=1.8.0_231-b11" + open)),
                ElementsAre("2 note version"));
}

TEST(VersionRulesTest, WarnsAboutPreferredVersionsOutsideTheBounds) {
    const std::wstring bounds = L"Minimum Version=11\nMaximum Version=17\n";
    EXPECT_THAT(Check(CheckVersions, Java(bounds + L"Preferred versions=17;11.0.2")), IsEmpty());
    EXPECT_THAT(Check(CheckVersions, Java(bounds + L"Preferred versions=21;1.8")),
                ElementsAre("4 warning preferred-version", "4 warning preferred-version"));
    EXPECT_THAT(Check(CheckVersions, Java(bounds + L"Preferred versions=17;")),
                ElementsAre("4 warning preferred-version"));
}

TEST(VersionRulesTest, WarnsAboutPreferredVersionsWithCommas) {
    const std::wstring bounds = L"Minimum Version=11\nMaximum Version=any\n";
    EXPECT_THAT(Check(CheckVersions, Java(bounds + L"Preferred versions=17,11")),
                ElementsAre("4 warning preferred-version"));
    EXPECT_THAT(AdviceOf(CheckVersions, Java(bounds + L"Preferred versions=17,11")),
                testing::HasSubstr("17;11"));
    EXPECT_THAT(Check(CheckVersions, Java(bounds + L"Preferred versions=17;11")), IsEmpty());
}

TEST(AdmittedVersionsTest, AreThoseWithinTheBounds) {
    const auto admitted = [](const std::wstring& lines) {
        return NameVersions(AdmittedVersions(SettingsOf(Java(lines))));
    };
    EXPECT_EQ(admitted(L"Minimum Version=1.8\nMaximum Version=any"), "11, 17, 21, 25");
    EXPECT_EQ(admitted(L"Minimum Version=17\nMaximum Version=21"), "17, 21");
    EXPECT_EQ(admitted(L"Minimum Version=17.0.5\nMaximum Version=17.0.9"), "17");
    EXPECT_EQ(admitted(L"Minimum Version=21"), "21, 25");
    EXPECT_EQ(admitted(L"Maximum Version=1.8"), "");
}

}  // namespace
}  // namespace tarn::tools
