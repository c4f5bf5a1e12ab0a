#include "tools/check/rules_fixture.h"

namespace tarn::tools {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::wstring Application(const std::wstring& lines) {
    return L"[Application]\n" + lines;
}

TEST(ArgumentRulesTest, WarnsAboutQuotesInsideAWord) {
    EXPECT_THAT(Check(CheckApplication, Application(L"Cmd=--name=\"a b\" c")),
                ElementsAre("2 warning argument-quotes"));
    EXPECT_EQ(AdviceOf(CheckApplication, Application(L"Cmd=--name=\"a b\" c")),
              "write \"--name=a b\"");
    EXPECT_EQ(AdviceOf(CheckApplication, Application(L"Cmd=-x --name=\"a\"")), "write --name=a");
    EXPECT_THAT(Check(CheckApplication, Application(L"Cmd=x \"a b\"c \"d\"\"e\"")),
                ElementsAre("2 warning argument-quotes", "2 warning argument-quotes"));
}

TEST(ArgumentRulesTest, WarnsAboutAnArgumentThatIsNotClosed) {
    EXPECT_THAT(Check(CheckApplication, Application(L"Cmd=x \"a b")),
                ElementsAre("2 warning argument-quotes"));
}

TEST(ArgumentRulesTest, AcceptsQuotedArgumentsAndASingleQuote) {
    for (const wchar_t* cmd : {L"a b", L"x \"a b\" c", L"x \"a\" \"\" \"b  c\"",
                               L"disk 5\" \"a b\" c", L"%MY_ARGUMENTS%", L""}) {
        EXPECT_THAT(Check(CheckApplication, Application(std::wstring(L"Cmd=") + cmd)), IsEmpty())
            << cmd;
    }
}

TEST(ServiceRulesTest, WarnsAboutASingleInstanceOfAService) {
    EXPECT_THAT(
        Check(CheckApplication, Application(L"Application Type=service\nSingle Instance=yes")),
        ElementsAre("3 warning service-instance"));
    EXPECT_THAT(Check(CheckApplication, Application(L"Single Instance=yes")), IsEmpty());
    EXPECT_THAT(
        Check(CheckApplication, Application(L"Application Type=service\nSingle Instance=no")),
        IsEmpty());
}

}  // namespace
}  // namespace tarn::tools
