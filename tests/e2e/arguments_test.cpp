// The arguments of main: those of the command line, then those of "Cmd".

#include "tests/support/fake_jvm_fixture.h"

namespace tarn::test {
namespace {

class Arguments : public FakeJvmFixture {
  protected:
    /// The arguments of main when the command line is the quoted path followed by this text.
    std::string After(std::wstring_view rest) {
        app.WriteSettings(settings);
        const auto process = app.LaunchWith(L'"' + app.Executable() + L'"' + std::wstring(rest));
        EXPECT_EQ(process->ExitCode(), 0);
        return MainArguments();
    }
};

TEST_F(Arguments, NoArgumentsAreAnEmptyArray) {
    EXPECT_EQ(After(L"  "), "[]");
}

TEST_F(Arguments, AnEmptyCommandLineHasNoArguments) {
    app.WriteSettings(settings);
    // Windows passes the process its path when the caller's text is empty.
    EXPECT_EQ(app.LaunchWith(L" ")->ExitCode(), 0);
    EXPECT_EQ(MainArguments(), "[]");
}

TEST_F(Arguments, AnUnquotedPathEndsAtItsFirstSpace) {
    app.WriteSettings(settings);
    EXPECT_EQ(app.LaunchWith(L"C:\\My Apps\\sample.exe x")->ExitCode(), 0);
    EXPECT_EQ(MainArguments(), R"(["Apps\\sample.exe", "x"])");
}

TEST_F(Arguments, AreSeparatedByRunsOfSpaces) {
    EXPECT_EQ(After(L"  a  \"b c\"  "), R"(["a", "b c"])");
}

TEST_F(Arguments, ATabDoesNotSeparateButIsTrimmedAtTheEnds) {
    EXPECT_EQ(After(L" a\tb c\t"), R"(["a\u0009b", "c"])");
}

TEST_F(Arguments, EmptyQuotedOnesCount) {
    EXPECT_EQ(After(L" \"\" a \"\""), R"(["", "a", ""])");
}

TEST_F(Arguments, TextAfterAClosingQuoteBeginsANewOne) {
    EXPECT_EQ(After(L" \"a\"b"), R"(["a", "b"])");
}

TEST_F(Arguments, AQuoteInTheMiddleAndABackslashAreLiteral) {
    EXPECT_EQ(After(L" a\"b c\" \"x\\\" y"), R"(["a\"b", "c\"", "x\\", "y"])");
}

TEST_F(Arguments, AnUnclosedQuoteRunsToTheEnd) {
    EXPECT_EQ(After(L" a \"b  c"), R"(["a", "b  c"])");
}

TEST_F(Arguments, UnicodeReachesMainUnchanged) {
    // A character outside every code page, a surrogate pair, half of one.
    EXPECT_EQ(After(L" \u8A66\u9A13 \xD83D\xDE00 x\xD83Dy"),
              "[\"\xE8\xA9\xA6\xE9\xA8\x93\", \"\xF0\x9F\x98\x80\", \"x\\uD83Dy\"]");
}

TEST_F(Arguments, SplashSwitchesArePassedOn) {
    EXPECT_EQ(After(L" a -nosplash /nosplash -NOSPLASH"),
              R"(["a", "-nosplash", "/nosplash", "-NOSPLASH"])");
}

TEST_F(Arguments, AThousandLeakNoReferences) {
    app.WriteScript("main = log_local_references");
    std::wstring rest;
    std::string expected = "[";
    for (int i = 0; i < 1000; ++i) {
        rest += L" argument" + std::to_wstring(i);
        expected += (i != 0 ? ", \"argument" : "\"argument") + std::to_string(i) + '"';
    }
    EXPECT_EQ(After(rest), expected + "]");
    const std::string held = app.Log().After("local references ");
    ASSERT_FALSE(held.empty());
    EXPECT_LT(std::stoi(held), 16) << "a JVM promises room for 16";
}

TEST_F(Arguments, ThirtyThousandCharactersReachMain) {
    const std::wstring text = Repeated(L"x", 30'000);
    EXPECT_EQ(After(L' ' + text), "[\"" + ToUtf8(text) + "\"]");
}

TEST_F(Arguments, ArgumentsOfTheSettingsFollow) {
    app.environment[L"TARN_PROBE"] = L"from outside";
    settings.Application(L"Cmd", L"  -a  \"%TARN_PROBE%\" \"\" %TARN_PROBE% \"un closed");
    EXPECT_EQ(After(L" first"),
              R"(["first", "-a", "from outside", "from", "outside", "un closed"])");
}

TEST_F(Arguments, OfTheSettingsDoNotSuppressTheSplash) {
    settings.Application(L"Cmd", L"-nosplash\tx");
    EXPECT_EQ(After(L""), R"(["-nosplash\u0009x"])");
}

}  // namespace
}  // namespace tarn::test
