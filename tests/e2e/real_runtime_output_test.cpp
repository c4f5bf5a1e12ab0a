// Output files as real Java runtimes write them.

#include <string>

#include "base/windows.h"
#include "tests/support/real_runtime_fixture.h"

namespace tarn::test {
namespace {

using testing::HasSubstr;

class RealRuntimeOutput : public EachRuntimeFixture {
  protected:
    RealRuntimeOutput() {
        settings.Runtime(L"Main Class", L"fixture.Streams");
        settings.Application(L"Output File", OutputPath());
        settings.Application(L"Error File", ErrorPath());
    }

    std::wstring OutputPath() const { return app.Path(L"logs\\out.txt"); }
    std::wstring ErrorPath() const { return app.Path(L"logs\\err.txt"); }
    std::string Output() const { return ReadFileBytes(OutputPath()); }
    std::string Errors() const { return ReadFileBytes(ErrorPath()); }
};
INSTANTIATE_TEST_SUITE_P(Java, RealRuntimeOutput, kAllRuntimes, RuntimeName);

TEST_P(RealRuntimeOutput, IsCompleteHoweverTheApplicationEnds) {
    EXPECT_EQ(Run(L"print:one error:two byte:51 print:four-and-longer"), 0);
    EXPECT_EQ(Output(), "initializer;one3four-and-longer");
    EXPECT_EQ(Errors(), "initializer;two");

    // The second start replaces the file, the third appends to it.
    EXPECT_EQ(Run(L"print:one error:two byte:51 exit:3"), 3);
    EXPECT_EQ(Output(), "initializer;one3");
    EXPECT_EQ(Errors(), "initializer;two");

    settings.Application(L"Output Append", L"yes");
    settings.Application(L"Error Append", L"Yes");
    EXPECT_EQ(Run(L"print:one error:halted byte:51 halt:4"), 4);
    EXPECT_EQ(Output(), "initializer;one3initializer;one3");
    EXPECT_EQ(Errors(), "initializer;halted");
}

TEST_P(RealRuntimeOutput, IsInJavasDefaultCharacterSet) {
    EXPECT_EQ(Run(L"letters"), 0);
    std::string hexadecimal;
    for (const char c : Output().substr(12)) {
        constexpr char kDigits[] = "0123456789abcdef";
        const auto byte = static_cast<unsigned char>(c);
        hexadecimal += kDigits[byte >> 4U];
        hexadecimal += kDigits[byte & 15U];
    }
    EXPECT_TRUE(Report().Has("bytes", FromUtf8(hexadecimal))) << hexadecimal;
}

/// What is the same on all runtimes, with the oldest and the newest.
class RealRuntimeOutputFiles : public RealRuntimeOutput {};
INSTANTIATE_TEST_SUITE_P(Java, RealRuntimeOutputFiles, testing::Values("11", "25"), RuntimeName);

TEST_P(RealRuntimeOutputFiles, MayBeOneFileForBothStreams) {
    settings.Application(L"Error File", OutputPath());
    settings.Application(L"Output Append", L"yes");
    settings.Application(L"Error Append", L"yes");
    EXPECT_EQ(Run(L"print:one error:two print:three"), 0);
    EXPECT_EQ(Output(), "initializer;initializer;onetwothree");
}

TEST_P(RealRuntimeOutputFiles, ContainTheExceptionsOfOtherThreads) {
    EXPECT_EQ(Run(L"thread print:after"), 0);
    EXPECT_THAT(Errors(), HasSubstr("Exception in thread \"other\" "
                                    "java.lang.IllegalStateException: on another thread"));
    EXPECT_EQ(Output(), "initializer;after");
}

TEST_P(RealRuntimeOutputFiles, ThatCannotBeOpenedAreDescribedAndTheOtherIsUsed) {
    app.AddFolder(L"logs\\out.txt");
    EXPECT_EQ(Run(L"print:one error:two"), 0);
    EXPECT_THAT(StandardError(), HasSubstr("java.io.FileNotFoundException: "));
    EXPECT_THAT(StandardOutput(), HasSubstr("one"));
    EXPECT_EQ(Errors(), "initializer;two");
}

TEST_P(RealRuntimeOutputFiles, MayHaveATimeStampAndLettersOfAnyAlphabetInTheirNames) {
    SYSTEMTIME before;
    GetLocalTime(&before);
    settings.Application(L"Output File", app.Path(L"\u4e16 \u0416\\%yyyy%.txt"));
    EXPECT_EQ(Run(L"print:one"), 0);
    SYSTEMTIME after;
    GetLocalTime(&after);
    const auto text = [&](const SYSTEMTIME& time) {
        return ReadFileBytes(app.Path(L"\u4e16 \u0416\\" + std::to_wstring(time.wYear) + L".txt"));
    };
    EXPECT_EQ(text(before) + (after.wYear != before.wYear ? text(after) : ""), "initializer;one");
}

TEST_P(RealRuntimeOutputFiles, ContainTheReasonForAMissingMainClass) {
    settings.Runtime(L"Main Class", L"com.example.NoSuchClass");
    EXPECT_EQ(Run(), 1);
    EXPECT_THAT(Errors(), HasSubstr("com.example.NoSuchClass"));
}

class ImpossibleOutputName : public RealRuntimeOutput {};
INSTANTIATE_TEST_SUITE_P(Java, ImpossibleOutputName, testing::Values("21"), RuntimeName);

TEST_P(ImpossibleOutputName, LeavesTheApplicationRunning) {
    for (const std::wstring& name :
         {app.Path(L"a<b>|\"?*.txt"), app.Path(std::wstring(32'000, L'x')),
          app.Path(L"deep") + Repeated(L"\\0123456789", 2'900)}) {
        settings.Application(L"Output File", name);
        EXPECT_EQ(Run(L"print:one error:two"), 0);
        EXPECT_EQ(Errors(), "initializer;two");
        EXPECT_THAT(StandardOutput(), HasSubstr("one"));
        EXPECT_THAT(StandardError(), HasSubstr("Exception"));
    }
}

}  // namespace
}  // namespace tarn::test
