// Letters of the system's 8-bit code page: scripts/environments.sh runs these tests with several
// code pages. In some, the second byte of a letter is that of a backslash.

#include "tests/support/fake_jvm_fixture.h"

namespace tarn::test {
namespace {

using testing::Contains;
using testing::StartsWith;

/// Letters that the code page contains and most other code pages lack.
std::wstring LettersOfCodePage() {
    switch (GetACP()) {
        case 932:
            return L"\u8868\u30BD\u80FD";  // each ends in the byte of a backslash
        case 936:
            return L"\u8BB0\u5F55";
        case 1251:
            return L"\u041F\u0440\u0438\u0432\u0435\u0442";
        case CP_UTF8:
            return L"\u8868\u041F\u00E9\u20AC\U0001F600";
        default:
            return L"\u00E9\u00DF\u00FC";
    }
}

/// A settings file of 8-bit text, as editors without UTF-16 wrote it.
class CodePage : public FakeJvmFixture {
  protected:
    CodePage() {
        // No other letters, which the code page may lack.
        settings.Runtime(L"JRE Path", L"jre");
        app.directory = app.folder();
    }

    std::int32_t RunWithBytes() {
        app.WriteSettingsBytes(AnsiFile(settings.Text()));
        return app.Launch()->ExitCode().value_or(kNoExitCode);
    }

    const std::wstring letters_ = LettersOfCodePage();
};

TEST_F(CodePage, LettersOfASettingsFileReachTheJvmAsTheSameBytes) {
    settings.Runtime(L"Virtual Machine Parameters", L"-Dname=" + letters_ + L"\\x");
    EXPECT_EQ(RunWithBytes(), 0);
    EXPECT_THAT(app.Log().Options(), Contains(AnsiInLog(L"-Dname=" + letters_ + L"\\x")));
}

TEST_F(CodePage, ARuntimeInAFolderWithThoseLettersIsFound) {
    settings.Runtime(L"JRE Path", L"Folder\\" + letters_);
    app.AddRuntime(L"Folder\\" + letters_);
    EXPECT_EQ(RunWithBytes(), 0);
    EXPECT_THAT(app.Log().After("environment TARN_JVM_HOME="),
                testing::HasSubstr(TextInLog(letters_).substr(1)));
}

TEST_F(CodePage, ClassPathPatternsMatchFilesWithThoseLetters) {
    app.AddFile(L"lib\\" + letters_ + L".jar");
    settings.Set(L"Class Path", L"Class Path", L"lib\\*.jar");
    EXPECT_EQ(RunWithBytes(), 0);
    EXPECT_THAT(app.Log().Options(), Contains(AnsiInLog(L"-Djava.class.path=" + app.Path(L"lib\\") +
                                                        letters_ + L".jar;")));
}

TEST_F(CodePage, ArgumentsOutsideTheCodePagePassUnchanged) {
    settings.Application(L"Cmd", letters_);
    app.WriteSettingsBytes(AnsiFile(settings.Text()));
    EXPECT_EQ(app.Launch(L"\u00E9\u0416\u8868")->ExitCode(), 0);
    EXPECT_EQ(MainArguments(),
              "[" + TextInLog(L"\u00E9\u0416\u8868") + ", " + TextInLog(letters_) + "]");
}

TEST_F(CodePage, AnErrorBoxShowsThoseLetters) {
    const std::wstring library = app.AddFile(letters_ + L"\\bin\\client\\jvm.dll", "no library");
    settings.Runtime(L"JRE Path", letters_);
    app.WriteSettingsBytes(AnsiFile(settings.Text()));
    const auto process = app.Launch();
    EXPECT_THAT(ToUtf8(CloseErrorBox(*process)),
                StartsWith(ToUtf8(L"Failed to load Java VM library: " + letters_ +
                                  L"\\bin\\client\\jvm.dll (errno = ")));
    EXPECT_EQ(process->ExitCode(), -1);
}

}  // namespace
}  // namespace tarn::test
