// The options of JNI_CreateJavaVM, byte for byte and in order.

#include "tests/support/fake_jvm_fixture.h"

namespace tarn::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class OptionList : public FakeJvmFixture {
  protected:
    static constexpr char kClassPath[] = R"("-Djava.class.path=C:\app.jar;")";

    /// The options after the class path, for these parameters.
    std::vector<std::string> OptionsOf(std::wstring_view parameters) {
        settings.Runtime(L"Virtual Machine Parameters", parameters);
        EXPECT_EQ(Run(), 0);
        auto options = app.Log().Options();
        EXPECT_FALSE(options.empty());
        if (options.empty()) return options;
        EXPECT_EQ(options.front(), kClassPath);
        options.erase(options.begin());
        return options;
    }
};

TEST_F(OptionList, ContainsTheClassPathAndTheHooksByDefault) {
    ASSERT_EQ(Run(), 0);
    const FakeJvmLog log = app.Log();
    EXPECT_TRUE(log.Has("JNI_CreateJavaVM(version=0x10002, options=3, ignoreUnrecognized=false)"));
    EXPECT_TRUE(log.Has(R"(option 0 "-Djava.class.path=C:\app.jar;")"));
    EXPECT_TRUE(log.Has(R"(option 1 "abort" with extraInfo)"));
    EXPECT_TRUE(log.Has(R"(option 2 "exit" with extraInfo)"));
}

TEST_F(OptionList, BeginsWithTheLibraryPath) {
    app.environment[L"PATH"] = L"C:\\windows\\system32;C:\\windows";
    settings.Runtime(L"Library Path", L"C:\\native\\");
    settings.Runtime(L"Virtual Machine Parameters", L"-Da=b -Dc=d");
    ASSERT_EQ(Run(), 0);
    // At that time the runtime's folder is not yet in the Path.
    const std::wstring libraryPath = L"-Djava.library.path=C:\\native\\" + app.folder() +
                                     L";.;C:\\windows\\system32;C:\\windows" +
                                     app.Path(L"jre\\lib");
    EXPECT_THAT(app.Log().Options(),
                ElementsAre(AnsiInLog(libraryPath), kClassPath, R"("-Da=b")", R"("-Dc=d")"));
}

TEST_F(OptionList, ExpandsVariablesInTheLibraryPath) {
    app.environment[L"PATH"] = L"C:\\p";
    app.environment[L"TARN_PROBE"] = L"D:\\probe";
    settings.Runtime(L"Library Path", L"%TARN_PROBE%;%TARN_UNKNOWN%;");
    ASSERT_EQ(Run(), 0);
    ASSERT_THAT(app.Log().Options(), SizeIs(2));
    EXPECT_EQ(app.Log().Options()[0],
              AnsiInLog(L"-Djava.library.path=D:\\probe;%TARN_UNKNOWN%;" + app.folder() +
                        L";.;C:\\p" + app.Path(L"jre\\lib")));
}

TEST_F(OptionList, SplitsParametersAtSpaces) {
    EXPECT_THAT(OptionsOf(L"-a  -b"), ElementsAre(R"("-a")", R"("-b")"));
}

TEST_F(OptionList, RemovesQuotes) {
    EXPECT_THAT(OptionsOf(L"-Dname=\"a b\" -Dq=\"x\"y\"z w\""),
                ElementsAre(R"("-Dname=a b")", R"("-Dq=xyz w")"));
}

TEST_F(OptionList, EmptyQuotesAreAnEmptyParameter) {
    EXPECT_THAT(OptionsOf(L"-a \"\" -b"), ElementsAre(R"("-a")", R"("")", R"("-b")"));
}

TEST_F(OptionList, AnUnclosedQuoteExtendsToTheEnd) {
    EXPECT_THAT(OptionsOf(L"-a -D\"x y  z"), ElementsAre(R"("-a")", R"("-D"x y  z")"));
}

TEST_F(OptionList, ExpandsVariablesOfParameters) {
    app.environment[L"TARN_PROBE"] = L"with space";
    EXPECT_THAT(OptionsOf(L"-Da=\"%TARN_PROBE%\" -Db=%TARN_JVM_HOME%"),
                ElementsAre(R"("-Da=with space")", AnsiInLog(L"-Db=" + app.Path(L"jre"))));
}

TEST_F(OptionList, ExpandsVariablesUpToWindowsLimit) {
    // A little below 32,767 characters, the limit of the Windows function that expands variables.
    const std::wstring big = Repeated(L"b", 16'000);
    app.environment[L"TARN_PROBE"] = big;
    EXPECT_THAT(OptionsOf(L"-Da=%TARN_PROBE%%TARN_PROBE%"),
                ElementsAre(AnsiInLog(L"-Da=" + big + big)));
}

TEST_F(OptionList, ATabDoesNotSeparate) {
    EXPECT_THAT(OptionsOf(L"-a\t-b -c"), ElementsAre(R"("-a\x09-b")", R"("-c")"));
}

TEST_F(OptionList, ADoubledQuoteBecomesOne) {
    EXPECT_THAT(OptionsOf(L"-Da=\"b\"\"c -Dd"), ElementsAre(R"("-Da=b"c -Dd")"));
}

TEST_F(OptionList, ConvertsToTheSystemsCodePage) {
    EXPECT_THAT(OptionsOf(L"-Da=\u00E9\u20AC\u8A66"),
                ElementsAre(AnsiInLog(L"-Da=\u00E9\u20AC\u8A66")));
}

TEST_F(OptionList, AppendsAdditiveParameters) {
    settings.Set(L"Java Runtime Environment+", L"Virtual Machine Parameters", L"-Xmx1g -Da");
    ASSERT_EQ(Run(), 0);
    EXPECT_THAT(app.Log().Options(), ElementsAre(kClassPath, R"("-Xmx1g")", R"("-Da")"));
}

TEST_F(OptionList, AcceptsAParameterOfThirtyThousandCharacters) {
    const std::wstring value = L"-Dlong=" + Repeated(L"v", 30'000);
    EXPECT_THAT(OptionsOf(value), ElementsAre(AnsiInLog(value)));
}

TEST_F(OptionList, AcceptsManyParameters) {
    std::wstring value;
    for (int i = 0; i < 3000; ++i) value += L"-D" + std::to_wstring(i) + L' ';
    const auto options = OptionsOf(value);
    ASSERT_THAT(options, SizeIs(3000));
    EXPECT_EQ(options.back(), R"("-D2999")");
    EXPECT_TRUE(app.Log().Has(R"(option 3002 "exit" with extraInfo)"));
}

class MemorySizes : public OptionList {
  protected:
    // As the launcher reads it: Windows does not limit the result of this call in 64-bit processes.
    static unsigned long long Kibibytes(double fraction) {
        MEMORYSTATUS status{};
        GlobalMemoryStatus(&status);
        return static_cast<unsigned long long>(static_cast<double>(status.dwTotalPhys >> 10) *
                                               fraction);
    }

    static std::string Size(const std::string& prefix, unsigned long long kibibytes) {
        return '"' + prefix + std::to_string(static_cast<std::int32_t>(kibibytes)) + "K\"";
    }
};

TEST_F(MemorySizes, AreSharesOfThePhysicalMemory) {
    EXPECT_THAT(OptionsOf(L"-Xms10P -Xmx50p -Xss1p"),
                ElementsAre(Size("-Xms", Kibibytes(0.1)), Size("-Xmx", Kibibytes(0.5)),
                            Size("-Xss", Kibibytes(0.01))));
}

TEST_F(MemorySizes, AreWithinTheirBoundsAndTheMinimumWins) {
    EXPECT_THAT(
        OptionsOf(L"-Xmx100:16:64p -Xms0:32p -Xmx50:2048:1024p -Xmx0::7p"),
        ElementsAre(R"("-Xmx65536K")", R"("-Xms32768K")", R"("-Xmx2097152K")", R"("-Xmx0K")"));
}

TEST_F(MemorySizes, OfTheAddressSpaceAreCloseToThoseOfThisProcess) {
    MEMORYSTATUS status{};
    GlobalMemoryStatus(&status);
    const auto options = OptionsOf(L"-Xmx1:0:1024t -Xms1T");
    ASSERT_THAT(options, SizeIs(2));
    // One percent of a 64-bit address space is far more than a gibibyte.
    EXPECT_EQ(options[0], R"("-Xmx1048576K")");
    // The available address space varies slightly between processes.
    const auto expected = static_cast<std::int32_t>(
        static_cast<unsigned long long>(static_cast<double>(status.dwAvailVirtual >> 10) * 0.01));
    const std::int32_t given = std::stoi(options[1].substr(5));
    EXPECT_NEAR(given, expected, 64.0 * 1024);
}

TEST_F(MemorySizes, OtherFormsAreUnchanged) {
    EXPECT_THAT(
        OptionsOf(L"-XMX50p -Xmn50p -Xmx512m -Xmx -Xms25"),
        ElementsAre(R"("-XMX50p")", R"("-Xmn50p")", R"("-Xmx512m")", R"("-Xmx")", R"("-Xms25")"));
}

class ClassPathMissing : public OptionList {};

TEST_F(ClassPathMissing, IsReportedAndTheLaunchContinues) {
    settings.Remove(L"Class Path", L"Class Path");
    settings.Runtime(L"Virtual Machine Parameters", L"-Dnot=read");
    settings.Application(L"Cmd", L"not read");
    EXPECT_EQ(RunWithErrorBox(L"Java Class Path was not specified in INI file."), 0);
    EXPECT_THAT(app.Log().Options(), IsEmpty());
    EXPECT_EQ(MainArguments(), "[]");
}

TEST_F(ClassPathMissing, KeepsTheLibraryPath) {
    app.environment[L"PATH"] = L"C:\\p";
    settings.Set(L"Class Path", L"Class Path", L";;nothing-there.jar;");
    settings.Runtime(L"Library Path", L"C:\\n;");
    EXPECT_EQ(RunWithErrorBox(L"Java Class Path was not specified in INI file."), 0);
    EXPECT_THAT(app.Log().Options(),
                ElementsAre(AnsiInLog(L"-Djava.library.path=C:\\n;" + app.folder() + L";.;C:\\p" +
                                      app.Path(L"jre\\lib"))));
}

}  // namespace
}  // namespace tarn::test
