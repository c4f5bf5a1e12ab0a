#include "tools/check/rules_fixture.h"

namespace tarn::tools {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST(KeywordRulesTest, EachFlagHasItsOwnForm) {
    EXPECT_THAT(Check(CheckKeywords,
                      L"[Application]\nFailure Check=yes\nEmbedded Jar=YES\n"
                      L"Single Instance=yes\n[Display]\nSplash Screen Shadow=true"),
                IsEmpty());
    EXPECT_THAT(Check(CheckKeywords,
                      L"[Application]\nFailure Check=true\nEmbedded Jar=1\n"
                      L"Single Instance=Yes\nOutput Append=YES\n[Display]\n"
                      L"Splash Screen Shadow=Yes"),
                ElementsAre("2 warning flag", "3 warning flag", "4 warning flag", "5 warning flag",
                            "7 warning flag"));
}

TEST(KeywordRulesTest, AcceptsValuesThatMeanOff) {
    EXPECT_THAT(Check(CheckKeywords,
                      L"[Application]\nFailure Check=No\nEmbedded Jar=0\n"
                      L"Single Instance=false\nOutput Append="),
                IsEmpty());
}

TEST(KeywordRulesTest, ListsTheKeywords) {
    const std::wstring java = L"[Java Runtime Environment]\n";
    EXPECT_THAT(
        Check(CheckKeywords, java + L"JVM Type=server\nJVM Source=only_JDK\nVM Provider=FAVOR_ibm"),
        IsEmpty());
    EXPECT_THAT(Check(CheckKeywords, java + L"VM Provider=sun"), IsEmpty());
    EXPECT_THAT(Check(CheckKeywords, java + L"Further Sources= Vendors ;user;;java_home;path"),
                IsEmpty());
    EXPECT_THAT(AdviceOf(CheckKeywords, java + L"Further Sources=vendors;folder"),
                HasSubstr("did you mean folders?"));
    EXPECT_EQ(AdviceOf(CheckKeywords, java + L"JVM Type=Server"), "did you mean server?");
    EXPECT_EQ(AdviceOf(CheckKeywords, java + L"JVM Source=Favor_JRE"), "did you mean favor_JRE?");
    EXPECT_THAT(AdviceOf(CheckKeywords, java + L"VM Provider=oracle"),
                HasSubstr("favor_jrockit, favor_ibm"));
    EXPECT_THAT(Check(CheckKeywords, L"[Application]\nApplication Type=gui"),
                ElementsAre("2 warning word"));
}

TEST(QuoteRulesTest, WarnsAboutArgumentQuotesThatWindowsRemoves) {
    EXPECT_THAT(Check(CheckQuotes, L"[Application]\nCmd=\"a b\""),
                ElementsAre("2 warning quotes-removed"));
    EXPECT_THAT(Check(CheckQuotes, L"[Application]\nCmd=\"a b\" \"c\""),
                ElementsAre("2 warning quotes-removed"));
    EXPECT_THAT(Check(CheckQuotes, L"[Application]\nCmd=\"\"a b\"\""),
                ElementsAre("2 warning quotes-removed"));
    EXPECT_THAT(Check(CheckQuotes, L"[Application]\nCmd=\"a\""), IsEmpty());
    EXPECT_THAT(Check(CheckQuotes, L"[Application]\nCmd=x \"a b\""), IsEmpty());
}

TEST(QuoteRulesTest, WarnsAboutQuotesInPaths) {
    EXPECT_THAT(Check(CheckQuotes, L"[Class Path]\nClass Path=\"lib\\a b.jar\";c.jar"),
                ElementsAre("2 warning quotes-kept"));
    EXPECT_THAT(Check(CheckQuotes, L"[Display]\nSplash Screen=\"a b.png\""), IsEmpty());
    EXPECT_THAT(Check(CheckQuotes, L"[Display]\nSplash Screen=\"a.png \""),
                ElementsAre("2 warning quoted-blanks"));
}

}  // namespace
}  // namespace tarn::tools
