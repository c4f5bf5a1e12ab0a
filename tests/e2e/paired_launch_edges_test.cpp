// Paired launches with a file that has only the headers of a 32-bit library, and their exit codes.

#include "tests/support/fake_jvm_fixture.h"
#include "tests/support/jvm_files.h"
#include "tests/support/pair_product.h"

namespace tarn::test {
namespace {

class PairedLaunchEdges : public FakeJvmFixture {
  protected:
    PairedLaunchEdges() {
        WriteFileBytes(library, HeadersOf32BitLibrary());
        settings.Application(L"Pair Return Code", L"Yes");
    }

    const std::wstring library = app.Path(L"jre\\bin\\server\\jvm.dll");
    PairProduct pair{app, settings};
};

TEST_F(PairedLaunchEdges, EveryExitCodeIsReturnedUnchanged) {
    // 259 is STILL_ACTIVE, the exit code of a running process.
    for (const int code : {0, 7, 256, -1, -559038737, 259}) {
        pair.EndWith(code);
        EXPECT_EQ(Run(), code);
    }
}

TEST_F(PairedLaunchEdges, LettersOfAnyScriptArePassedOn) {
    app.environment[PairProduct::kProbeVariable] = L"\u4E2D\u00E9";
    app.directory = app.AddFolder(L"here \u00E9");
    EXPECT_EQ(Run(L"\u00E9\u4E2D\xD83D\xDE00 \"\""), 0);
    EXPECT_EQ(pair.CommandLine(), L"\"" + app.Executable() + L"\" \u00E9\u4E2D\xD83D\xDE00 \"\"");
    EXPECT_EQ(pair.Directory(), app.directory);
    EXPECT_EQ(pair.Probe(), L"\u4E2D\u00E9");
}

TEST_F(PairedLaunchEdges, TheDirectoryIsTheLaunchersFolderWithOverrideWorkingDir) {
    settings.Application(L"Override WorkingDir", L"Yes");
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(pair.Directory() + L'\\', app.folder());
}

TEST_F(PairedLaunchEdges, AFileThatIsNotAProgramReturnsZero) {
    settings.Application(L"Pair Product", app.SettingsFile());
    EXPECT_EQ(Run(), 0);
    EXPECT_FALSE(pair.WasStarted());
}

TEST_F(PairedLaunchEdges, HeadersBeyondTheEndOfTheFileAreIgnored) {
    WriteFileBytes(library, HeadersOf32BitLibrary().substr(0, 70));
    EXPECT_EQ(Run(), 0);
    EXPECT_TRUE(pair.WaitUntilStarted());
    // The second byte of the machine field is missing.
    WriteFileBytes(library, HeadersOf32BitLibrary().substr(0, 69));
    EXPECT_EQ(RunWithErrorBox(LoadFailure(library)), -1);
}

}  // namespace
}  // namespace tarn::test
