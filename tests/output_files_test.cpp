// Where Java's standard streams go: names, folders, time stamps, and every failure on the way.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/handles.h"
#include "tests/support/fake_jvm_test.h"

namespace tarn::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::SizeIs;

bool IsThere(const std::wstring& path) {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

std::vector<std::string> FilesIn(const std::wstring& folder) {
    std::vector<std::string> names;
    WIN32_FIND_DATAW found;
    const FindHandle search(FindFirstFileW((folder + L"\\*").c_str(), &found));
    while (search) {
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
            names.push_back(ToUtf8(found.cFileName));
        }
        if (!FindNextFileW(search.get(), &found)) break;
    }
    return names;
}

constexpr char kPrints[] = "main = print to output\\r\\n\nmain = print_error to error\\r\\n\n";

class OutputFilesTest : public FakeJvmTest {
  protected:
    void SetUp() override { app.WriteScript(kPrints); }

    std::wstring OutputPath() const { return app.Path(L"out.txt"); }
    std::wstring ErrorPath() const { return app.Path(L"err.txt"); }
    void NameBoth() {
        settings.Application(L"Output File", OutputPath());
        settings.Application(L"Error File", ErrorPath());
    }
    /// Runs with an output file of that name, which cannot be opened, and an error file that can.
    void ExpectOnlyErrorsRedirected(const std::wstring& outputName) {
        settings.Application(L"Output File", outputName);
        settings.Application(L"Error File", ErrorPath());
        EXPECT_EQ(Run(), 0);
        EXPECT_EQ(ReadFileBytes(ErrorPath()), "to error\r\n");
        EXPECT_EQ(app.Log().Count("ExceptionDescribe"), 1U);
        EXPECT_EQ(app.Log().Count("CallStaticVoidMethod(java/lang/System.setOut"), 0U);
    }
};

TEST_F(OutputFilesTest, StreamsStayWithoutNames) {
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(ReadFileBytes(app.OutputFile()), "to output\r\n");
    EXPECT_EQ(ReadFileBytes(app.ErrorFile()), "to error\r\n");
    EXPECT_EQ(app.Log().Count("FindClass(\"java/io"), 0U);
}

TEST_F(OutputFilesTest, BothStreamsGoToTheirFiles) {
    NameBoth();
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(ReadFileBytes(OutputPath()), "to output\r\n");
    EXPECT_EQ(ReadFileBytes(ErrorPath()), "to error\r\n");
    EXPECT_EQ(ReadFileBytes(app.OutputFile()), "");
}

TEST_F(OutputFilesTest, OneStreamAloneCanBeRedirected) {
    settings.Application(L"Error File", ErrorPath());
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(ReadFileBytes(ErrorPath()), "to error\r\n");
    EXPECT_EQ(ReadFileBytes(app.OutputFile()), "to output\r\n");
}

TEST_F(OutputFilesTest, CallsToJavaComeInTheirOrderBeforeTheMainClass) {
    settings.Application(L"Output File", OutputPath());
    settings.Application(L"Output Append", L"yes");
    EXPECT_EQ(Run(), 0);
    const std::string name = TextInLog(OutputPath());
    std::vector<std::string> calls;
    for (const std::string& call : app.Log().Calls()) {
        if (call.find("ExceptionCheck") == 0) continue;
        if (call.find("LauncherHelper") != std::string::npos) break;
        calls.push_back(call);
    }
    const std::string length = std::to_string(OutputPath().size());
    EXPECT_THAT(
        calls,
        ElementsAre(
            "FindClass(\"java/lang/String\")",
            "GetMethodID(class java/lang/String, \"<init>\", \"([C)V\")",
            "NewCharArray(" + length + ")", "SetCharArrayRegion(0, " + length + ", " + name + ")",
            "NewObject(java/lang/String.<init>([C)V, char[" + length + "])",
            "FindClass(\"java/io/FileOutputStream\")",
            "GetMethodID(class java/io/FileOutputStream, \"<init>\", \"(Ljava/lang/String;Z)V\")",
            "NewObject(java/io/FileOutputStream.<init>(Ljava/lang/String;Z)V, " + name + ", true)",
            "FindClass(\"java/io/PrintStream\")",
            "GetMethodID(class java/io/PrintStream, \"<init>\", \"(Ljava/io/OutputStream;)V\")",
            "NewObject(java/io/PrintStream.<init>(Ljava/io/OutputStream;)V, object "
            "java/io/FileOutputStream)",
            "FindClass(\"java/lang/System\")",
            "GetStaticMethodID(class java/lang/System, \"setOut\", \"(Ljava/io/PrintStream;)V\")",
            "CallStaticVoidMethod(java/lang/System.setOut(Ljava/io/PrintStream;)V, object "
            "java/io/PrintStream)"));
}

TEST_F(OutputFilesTest, FileIsTruncated) {
    NameBoth();
    app.AddFile(L"out.txt", "an older and longer text\r\n");
    app.AddFile(L"err.txt", "an older and longer text\r\n");
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(ReadFileBytes(OutputPath()), "to output\r\n");
    EXPECT_EQ(ReadFileBytes(ErrorPath()), "to error\r\n");
}

TEST_F(OutputFilesTest, FileIsAppendedToWithYes) {
    NameBoth();
    settings.Application(L"Output Append", L"yes");
    settings.Application(L"Error Append", L"yes");
    app.AddFile(L"out.txt", "old\r\n");
    app.AddFile(L"err.txt", "old\r\n");
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(ReadFileBytes(OutputPath()), "old\r\nto output\r\n");
    EXPECT_EQ(ReadFileBytes(ErrorPath()), "old\r\nto error\r\n");
}

TEST_F(OutputFilesTest, AnyOtherAppendWordTruncates) {
    NameBoth();
    settings.Application(L"Output Append", L"Yes");
    settings.Application(L"Error Append", L"true");
    app.AddFile(L"out.txt", "old\r\n");
    app.AddFile(L"err.txt", "old\r\n");
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(ReadFileBytes(OutputPath()), "to output\r\n");
    EXPECT_EQ(ReadFileBytes(ErrorPath()), "to error\r\n");
}

TEST_F(OutputFilesTest, MissingFoldersOfAnAbsoluteNameAreCreated) {
    settings.Application(L"Output File", app.Path(L"logs\\a\\b\\out.txt"));
    std::wstring slashed = app.Path(L"errors/c/err.txt");
    settings.Application(L"Error File", slashed);
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(ReadFileBytes(app.Path(L"logs\\a\\b\\out.txt")), "to output\r\n");
    EXPECT_EQ(ReadFileBytes(app.Path(L"errors\\c\\err.txt")), "to error\r\n");
}

TEST_F(OutputFilesTest, RelativeNameGetsNoFolders) {
    app.directory = app.folder();
    ExpectOnlyErrorsRedirected(L"logs\\out.txt");
    EXPECT_FALSE(IsThere(app.Path(L"logs")));
}

TEST_F(OutputFilesTest, RelativeNameBelongsToTheWorkingDirectory) {
    app.directory = app.AddFolder(L"work");
    settings.Application(L"Output File", L"out.txt");
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(ReadFileBytes(app.Path(L"work\\out.txt")), "to output\r\n");
}

TEST_F(OutputFilesTest, BothNamesGetTheSameInstant) {
    settings.Application(L"Output File", app.Path(L"logs\\o_%yyyy-MM-dd HH.mm.ss.L%"));
    settings.Application(L"Error File", app.Path(L"logs\\e_%L ss-mm-HH dd-MM-yyyy%"));
    SYSTEMTIME before;
    GetLocalTime(&before);
    EXPECT_EQ(Run(), 0);
    const auto files = FilesIn(app.Path(L"logs"));
    ASSERT_THAT(files, SizeIs(2));
    const bool errorFirst = files[0][0] == 'e';
    const std::string output = files[errorFirst ? 1 : 0];
    const std::string error = files[errorFirst ? 0 : 1];
    ASSERT_THAT(output,
                MatchesRegex("o_\\d\\d\\d\\d-\\d\\d-\\d\\d \\d\\d\\.\\d\\d\\.\\d\\d\\.\\d+"));
    const std::string milliseconds = output.substr(22);
    EXPECT_EQ(error, "e_" + milliseconds + " " + output.substr(19, 2) + "-" + output.substr(16, 2) +
                         "-" + output.substr(13, 2) + " " + output.substr(10, 2) + "-" +
                         output.substr(7, 2) + "-" + output.substr(2, 4));
    EXPECT_GE(std::stoi(output.substr(2, 4)), before.wYear);
}

TEST_F(OutputFilesTest, PictureInAFoldersNameCreatesThatFolder) {
    settings.Application(L"Output File", app.Path(L"%yyyy%\\out.txt"));
    SYSTEMTIME before;
    GetLocalTime(&before);
    EXPECT_EQ(Run(), 0);
    SYSTEMTIME after;
    GetLocalTime(&after);
    const auto text = [&](const SYSTEMTIME& time) {
        return ReadFileBytes(app.Path(std::to_wstring(time.wYear) + L"\\out.txt"));
    };
    EXPECT_EQ(text(before) + (after.wYear != before.wYear ? text(after) : ""), "to output\r\n");
}

TEST_F(OutputFilesTest, SinglePercentVanishes) {
    settings.Application(L"Output File", app.Path(L"logs\\100%.txt"));
    EXPECT_EQ(Run(), 0);
    EXPECT_THAT(FilesIn(app.Path(L"logs")), ElementsAre("100.txt"));
}

TEST_F(OutputFilesTest, EnvironmentVariableWinsOverAPictureOfItsName) {
    app.environment[L"yyyy"] = L"variable";
    settings.Application(L"Output File", app.Path(L"logs\\%yyyy%.txt"));
    EXPECT_EQ(Run(), 0);
    EXPECT_THAT(FilesIn(app.Path(L"logs")), ElementsAre("variable.txt"));
}

TEST_F(OutputFilesTest, PictureThatIsTooLongVanishes) {
    settings.Application(L"Output File",
                         app.Path(L"logs\\a%" + std::wstring(300, L'_') + L"%b.txt"));
    settings.Application(L"Error File", app.Path(L"logs\\c%" + Repeated(L"dddd ", 60) + L"%d.txt"));
    EXPECT_EQ(Run(), 0);
    EXPECT_THAT(FilesIn(app.Path(L"logs")), testing::UnorderedElementsAre("ab.txt", "cd.txt"));
}

TEST_F(OutputFilesTest, NameOutsideTheCodePageIsKept) {
    const std::wstring path = app.Path(L"\u4e16\u754c \u0416\\\U0001F600.txt");
    settings.Application(L"Output File", path);
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(ReadFileBytes(path), "to output\r\n");
}

TEST_F(OutputFilesTest, BothStreamsMayGoToOneFile) {
    settings.Application(L"Output File", OutputPath());
    settings.Application(L"Output Append", L"yes");
    settings.Application(L"Error File", OutputPath());
    settings.Application(L"Error Append", L"yes");
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(ReadFileBytes(OutputPath()), "to output\r\nto error\r\n");
}

TEST_F(OutputFilesTest, FolderInTheFilesPlaceIsDescribed) {
    app.AddFolder(L"out.txt");
    ExpectOnlyErrorsRedirected(OutputPath());
}

TEST_F(OutputFilesTest, FileThatSomebodyElseHoldsIsDescribedAndKept) {
    const std::wstring path = app.AddFile(L"out.txt", "old");
    {
        const FileHandle held(CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                          FILE_ATTRIBUTE_NORMAL, nullptr));
        ASSERT_TRUE(held);
        ExpectOnlyErrorsRedirected(path);
    }
    EXPECT_EQ(ReadFileBytes(path), "old");
}

TEST_F(OutputFilesTest, ReadOnlyFileIsKept) {
    const std::wstring path = app.AddFile(L"out.txt", "old");
    ASSERT_TRUE(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY));
    // Under Wine the superuser may write to it all the same.
    const bool keeps =
        !FileHandle(CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    settings.Application(L"Output File", path);
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(app.Log().Count("ExceptionDescribe"), keeps ? 1U : 0U);
    EXPECT_EQ(ReadFileBytes(path), keeps ? "old" : "to output\r\n");
    SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(OutputFilesTest, FileInAFoldersPlaceIsDescribed) {
    app.AddFile(L"logs", "a file");
    ExpectOnlyErrorsRedirected(app.Path(L"logs\\a\\out.txt"));
    EXPECT_EQ(ReadFileBytes(app.Path(L"logs")), "a file");
}

TEST_F(OutputFilesTest, InvalidCharactersAreDescribed) {
    ExpectOnlyErrorsRedirected(app.Path(L"logs\\a<b>|\"?*.txt"));
}

/// A long absolute name with many folders. Wine takes more of it than Windows does: either the
/// file is there in the end or the failure was described.
class LongOutputName : public OutputFilesTest, public testing::WithParamInterface<std::size_t> {};

TEST_P(LongOutputName, IsOpenedOrDescribed) {
    std::wstring name = app.Path(L"deep");
    while (name.size() + 12 < GetParam()) name += L"\\0123456789";
    name += L'\\';
    name.resize(GetParam(), L'x');
    NameBoth();
    settings.Application(L"Output File", name);
    EXPECT_EQ(Run(), 0);
    EXPECT_TRUE(IsThere(app.Path(L"deep")));
    EXPECT_EQ(ReadFileBytes(ErrorPath()), "to error\r\n");
    const std::size_t opened = app.Log().Count("CallStaticVoidMethod(java/lang/System.setOut");
    EXPECT_EQ(app.Log().Count("ExceptionDescribe"), 1U - opened);
    EXPECT_EQ(ReadFileBytes(app.OutputFile()), opened == 1 ? "" : "to output\r\n");
}

INSTANTIATE_TEST_SUITE_P(Characters, LongOutputName, testing::Values(260, 1'000, 32'000));

TEST_F(OutputFilesTest, LongFileNameIsDescribed) {
    ExpectOnlyErrorsRedirected(app.Path(std::wstring(1'000, L'x')));
}

/// One way in which the redirection of the standard output fails.
struct FailedStep {
    const char* name;
    const char* script;
    bool leavesException;
};

class FailedRedirection : public OutputFilesTest, public testing::WithParamInterface<FailedStep> {};

TEST_P(FailedRedirection, LeavesTheStreamAndTriesTheOther) {
    app.WriteScript(std::string(kPrints) + GetParam().script);
    NameBoth();
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(ReadFileBytes(app.OutputFile()), "to output\r\n");
    EXPECT_EQ(ReadFileBytes(ErrorPath()), "to error\r\n");
    EXPECT_EQ(app.Log().Count("ExceptionDescribe"), GetParam().leavesException ? 1U : 0U);
    EXPECT_THAT(app.Log().After("CallStaticVoidMethod(com/example/Main.main"),
                testing::Not(IsEmpty()));
}

INSTANTIATE_TEST_SUITE_P(
    Output, FailedRedirection,
    testing::Values(FailedStep{"StringClassThrows", "throw FindClass 1", true},
                    FailedStep{"StringClassFails", "fail FindClass 1", false},
                    FailedStep{"StringConstructorThrows", "throw GetMethodID 1", true},
                    FailedStep{"ArrayThrows", "throw NewCharArray 1", true},
                    FailedStep{"ArrayRegionThrows", "throw SetCharArrayRegion 1", true},
                    FailedStep{"StringThrows", "throw NewObject 1", true},
                    FailedStep{"StringFails", "fail NewObject 1", false},
                    FailedStep{"FileClassThrows", "throw FindClass 2", true},
                    FailedStep{"FileClassFails", "fail FindClass 2", false},
                    FailedStep{"FileConstructorThrows", "throw GetMethodID 2", true},
                    FailedStep{"FileConstructorFails", "fail GetMethodID 2", false},
                    FailedStep{"FileThrows", "throw NewObject 2", true},
                    FailedStep{"FileFails", "fail NewObject 2", false},
                    FailedStep{"PrintStreamClassThrows", "throw FindClass 3", true},
                    FailedStep{"PrintStreamClassFails", "fail FindClass 3", false},
                    FailedStep{"PrintStreamConstructorThrows", "throw GetMethodID 3", true},
                    FailedStep{"PrintStreamConstructorFails", "fail GetMethodID 3", false},
                    FailedStep{"PrintStreamThrows", "throw NewObject 3", true},
                    FailedStep{"PrintStreamFails", "fail NewObject 3", false},
                    FailedStep{"SystemClassThrows", "throw FindClass 4", true},
                    FailedStep{"SystemClassFails", "fail FindClass 4", false},
                    FailedStep{"SetOutIsMissing", "no_method setOut", true},
                    FailedStep{"SetOutIsMissingSilently", "no_method_silent setOut", false},
                    FailedStep{"SetOutThrows", "throw CallStaticVoidMethod 1", true}),
    [](const testing::TestParamInfo<FailedStep>& each) { return each.param.name; });

TEST_F(OutputFilesTest, ErrorStreamThatFailsIsDescribedAndLeavesTheOther) {
    for (const char* script : {"throw NewObject 5", "throw NewObject 6", "no_method setErr",
                               "throw CallStaticVoidMethod 2"}) {
        app.WriteScript(std::string(kPrints) + script);
        NameBoth();
        EXPECT_EQ(Run(), 0) << script;
        EXPECT_EQ(ReadFileBytes(OutputPath()), "to output\r\n") << script;
        EXPECT_NE(ReadFileBytes(app.ErrorFile()).find("to error\r\n"), std::string::npos) << script;
        EXPECT_EQ(app.Log().Count("ExceptionDescribe"), 1U) << script;
        DeleteFileW(app.LogFile().c_str());
    }
}

TEST_F(OutputFilesTest, StreamsOfAClassThatIsMissingStayBoth) {
    app.WriteScript(std::string(kPrints) + "no_class java/io/FileOutputStream");
    NameBoth();
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(ReadFileBytes(app.OutputFile()), "to output\r\n");
    EXPECT_EQ(ReadFileBytes(app.ErrorFile()).find("to error\r\n") != std::string::npos, true);
    EXPECT_EQ(app.Log().Count("ExceptionDescribe"), 2U);
}

}  // namespace
}  // namespace tarn::test
