#include "tools/wrap/result_names.h"

#include <gmock/gmock.h>

#include "tools/common/failure.h"
#include "tools/common/folder_fixture.h"

namespace tarn::tools {
namespace {

using testing::AllOf;
using testing::HasSubstr;

template <typename Function>
std::string ProblemOf(const Function& function) {
    try {
        function();
    } catch (const Failure& failure) {
        return failure.what();
    }
    return "";
}

TEST(WindowsPathTest, AcceptsOrdinaryNames) {
    for (const char* const path :
         {"lib/a b-1.0 (x)\xC3\xA4.jar", "con1", "com10.txt", ".hidden", "a..b", "nul-1", "100%"}) {
        EXPECT_NO_THROW(CheckWindowsPath(path, "origin")) << path;
    }
}

TEST(WindowsPathTest, RejectsNamesThatWindowsCannotHave) {
    for (const char* const path :
         {"a:b.jar", "a*.jar", "a\nb", "a\\b", "a|b", "CON", "lib/nul.txt", "Com1", "LPT9.log",
          "com\xC2\xB9", "aux .txt", "a.", "a ", "a/", "", "../a", "a//b", "\xFF"}) {
        EXPECT_THROW(CheckWindowsPath(path, "origin"), Failure) << path;
    }
    EXPECT_THROW(CheckWindowsPath(std::string(256, 'x'), "origin"), Failure);
    EXPECT_NO_THROW(CheckWindowsPath(std::string(255, 'x'), "origin"));
}

TEST(WindowsPathTest, NamesTheOriginAndTheReason) {
    EXPECT_THAT(ProblemOf([] { CheckWindowsPath("lib/nul.jar", "in/nul.jar"); }),
                AllOf(HasSubstr("in/nul.jar"), HasSubstr("device")));
}

TEST(UpperCaseTest, CoversLettersWithACase) {
    EXPECT_EQ(ToUpperAsWindows(L"a\u00E4\u00FF\u017E\u03C9\u03C2\u0436\u0451\u1E9F"),
              L"A\u00C4\u0178\u017D\u03A9\u03A3\u0416\u0401\u1E9F");
    EXPECT_EQ(ToUpperAsWindows(L"\u00DF\u00F7\u0131"), L"\u00DF\u00F7\u0131");
}

TEST(ResultNamesTest, AreUniqueInAnyCase) {
    ResultNames names;
    EXPECT_TRUE(names.AddFile("app.exe", "the executable"));
    EXPECT_THAT(ProblemOf([&] { names.AddFile("APP.exe", "in/APP.exe"); }),
                AllOf(HasSubstr("in/APP.exe and the executable"), HasSubstr("APP.exe"),
                      HasSubstr("does not distinguish from app.exe")));
    EXPECT_TRUE(names.AddFile("\xC3\xA4.txt", "a"));
    EXPECT_NE(ProblemOf([&] { names.AddFile("\xC3\x84.txt", "b"); }), "");
}

TEST(ResultNamesTest, AreEitherFilesOrFolders) {
    ResultNames names;
    names.AddFile("lib/a.jar", "a");
    names.AddFolder("lib", "b");
    EXPECT_NE(ProblemOf([&] { names.AddFile("lib", "c"); }), "");
    EXPECT_NE(ProblemOf([&] { names.AddFile("lib/a.jar/x", "d"); }), "");
    EXPECT_NE(ProblemOf([&] { names.AddFile("LIB/b.jar", "e"); }), "");
}

using ResultNamesOfFiles = FolderTest;

TEST_F(ResultNamesOfFiles, AcceptTheSameSourceTwice) {
    const auto file = Put("a.jar", "x");
    const auto other = Put("other/a.jar", "x");
    ResultNames names;
    EXPECT_TRUE(names.AddFile("lib/a.jar", "a", file));
    EXPECT_FALSE(names.AddFile("lib/a.jar", "a", folder_ / "other/../a.jar"));
    EXPECT_NE(ProblemOf([&] { names.AddFile("lib/a.jar", "b", other); }), "");
}

}  // namespace
}  // namespace tarn::tools
