#include "tools/check/rules_fixture.h"

namespace tarn::tools {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::wstring Options(const std::wstring& options) {
    return L"[Java Runtime Environment]\nVirtual Machine Parameters=" + options;
}

TEST(ModuleOptionRulesTest, RejectsMalformedValues) {
    for (const wchar_t* option :
         {L"--add-opens=java.base/java.lang", L"--add-opens=java.base=ALL-UNNAMED",
          L"--add-opens=java.base/java/lang=ALL-UNNAMED", L"--add-opens=java.base/java.lang=",
          L"--add-opens=/java.lang=ALL-UNNAMED", L"--add-opens=java.base/=ALL-UNNAMED",
          L"--add-opens==ALL-UNNAMED", L"--add-opens=", L"--add-exports=java.base/sun.misc",
          L"--add-reads=java.base", L"--add-reads=java.base=", L"--patch-module=java.base"}) {
        EXPECT_THAT(Check(CheckModuleOptions, Options(option)),
                    ElementsAre("2 error module-option"))
            << option;
    }
    EXPECT_THAT(AdviceOf(CheckModuleOptions, Options(L"--add-opens=java.base/java.lang")),
                HasSubstr("--add-opens=java.base/java.lang=ALL-UNNAMED"));
}

TEST(ModuleOptionRulesTest, AcceptsCompleteValues) {
    EXPECT_THAT(
        Check(CheckModuleOptions,
              Options(L"--add-opens=java.base/java.lang=ALL-UNNAMED "
                      L"--add-opens=java.desktop/sun.awt=my.app,ALL-UNNAMED "
                      L"--add-exports=java.base/sun.nio.ch=my.app --add-reads=my.app=java.sql "
                      L"--patch-module=java.base=lib/patch.jar --add-opens=%OPENED% "
                      L"--add-modules=java.sql")),
        IsEmpty());
}

TEST(ModuleOptionRulesTest, WarnsAboutAnotherSpellingOfTheUnnamedModule) {
    for (const wchar_t* module : {L"ALL_UNNAMED", L"all-unnamed"}) {
        EXPECT_THAT(Check(CheckModuleOptions,
                          Options(std::wstring(L"--add-opens=java.base/java.lang=") + module)),
                    ElementsAre("2 warning module-option"))
            << module;
    }
}

TEST(ModuleOptionRulesTest, IgnoresOtherJvms) {
    EXPECT_THAT(Check(CheckModuleOptions, Options(L"--add-opens=java.base") + L"\nVM Provider=ibm"),
                IsEmpty());
}

}  // namespace
}  // namespace tarn::tools
