// The paired 32-bit launcher, which is started instead when the configured jvm.dll has 32 bits.

#include "tests/support/fake_jvm_fixture.h"
#include "tests/support/jvm_files.h"
#include "tests/support/named_event.h"
#include "tests/support/paths.h"

namespace tarn::test {
namespace {

class PairedLaunch : public FakeJvmFixture {
  protected:
    PairedLaunch() {
        WriteFileBytes(JvmPath(), As32Bit(ReadFileBytes(JvmPath())));
        const std::wstring pair = app.AddFile(L"pair product.exe");
        CopyFileW((GetPaths().programs + L"\\pair_product.exe").c_str(), pair.c_str(), FALSE);
        settings.Application(L"Pair Product", pair);
        app.environment[L"PAIR_LOG"] = ReportFile();
        app.environment[L"PAIR_EXIT"] = L"-77";
        app.environment[L"PAIR_PROBE"] = L"inherited";
    }

    std::wstring JvmPath() const { return app.Path(L"jre\\bin\\server\\jvm.dll"); }
    std::wstring ReportFile() const { return app.Path(L"pair.log"); }

    /// The report of the paired program: its command line, directory, a variable, start flags,
    /// error mode.
    std::wstring ReportText() const {
        const std::string bytes = ReadFileBytes(ReportFile());
        return {reinterpret_cast<const wchar_t*>(bytes.data()), bytes.size() / sizeof(wchar_t)};
    }
};

TEST_F(PairedLaunch, PassesEverythingOnAndReturnsTheExitCode) {
    settings.Application(L"Pair Return Code", L"yes");
    app.WriteSettings(settings);
    const std::wstring commandLine = L"  \"" + app.Executable() + L"\"  a  \"b c\"\t-nosplash  ";
    EXPECT_EQ(app.LaunchWith(commandLine)->ExitCode(), -77);
    const std::wstring directory = app.directory.substr(0, app.directory.size() - 1);
    EXPECT_EQ(ToUtf8(ReportText()),
              ToUtf8(commandLine + L'\n' + directory + L"\ninherited\n0\n0\n"));
    EXPECT_EQ(app.Log().Count("jvm.dll loaded"), 0U);
}

TEST_F(PairedLaunch, EndsAtOnceWithoutReturnCode) {
    NamedEvent end;
    app.environment[L"PAIR_WAIT"] = end.name();
    EXPECT_EQ(Run(), 0);
    EXPECT_TRUE(WaitUntil([&] { return !ReportText().empty(); }));
    end.Set();
}

TEST_F(PairedLaunch, WaitsForTheReturnCode) {
    NamedEvent end;
    app.environment[L"PAIR_WAIT"] = end.name();
    settings.Application(L"Pair Return Code", L"Yes");
    const auto process = Start();
    ASSERT_TRUE(WaitUntil([&] { return !ReportText().empty(); }));
    EXPECT_FALSE(process->HasEnded());
    end.Set();
    EXPECT_EQ(process->ExitCode(), -77);
}

TEST_F(PairedLaunch, OfAMissingProgramReturnsZero) {
    settings.Application(L"Pair Product", L"C:\\nothing\\there.exe");
    settings.Application(L"Pair Return Code", L"Yes");
    EXPECT_EQ(Run(), 0);
}

TEST_F(PairedLaunch, ExpandsNoVariablesInTheProgram) {
    app.environment[L"TARN_PROBE"] = app.folder();
    settings.Application(L"Pair Product", L"%TARN_PROBE%pair product.exe");
    settings.Application(L"Pair Return Code", L"Yes");
    EXPECT_EQ(Run(), 0);
    EXPECT_TRUE(ReportText().empty());
}

TEST_F(PairedLaunch, IsNotStartedForA64BitLibrary) {
    app.AddRuntime();
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(app.Log().Count("JNI_CreateJavaVM"), 1U);
    EXPECT_TRUE(ReportText().empty());
}

TEST_F(PairedLaunch, IsNotStartedForAnInvalidLibrary) {
    for (const std::string& bytes : {std::string("MZ"), std::string(5000, 'M'), std::string(),
                                     std::string("MZ") + std::string(62, '\x7F')}) {
        WriteFileBytes(JvmPath(), bytes);
        EXPECT_EQ(RunWithErrorBox(LoadFailure(JvmPath())), -1);
        EXPECT_TRUE(ReportText().empty());
    }
}

TEST_F(PairedLaunch, IsNotStartedForAShippedRuntime) {
    settings.Remove(L"Java Runtime Environment", L"JRE Path");
    app.AddFile(L"jre64\\bin\\java.dll");
    const std::wstring library =
        app.AddFile(L"jre64\\bin\\server\\jvm.dll", ReadFileBytes(JvmPath()));
    EXPECT_EQ(RunWithErrorBox(LoadFailure(library)), -1);
    EXPECT_TRUE(ReportText().empty());
}

}  // namespace
}  // namespace tarn::test
