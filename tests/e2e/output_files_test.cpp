// Output files of Java's standard streams: names, folders, time stamps.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "base/handles.h"
#include "tests/support/output_files_fixture.h"

namespace tarn::test {
namespace {

using testing::ElementsAre;
using testing::IsSupersetOf;
using testing::MatchesRegex;
using testing::SizeIs;

using OutputFiles = OutputFilesFixture;

std::vector<std::string> FilesIn(const std::wstring& folder) {
    std::vector<std::string> names;
    WIN32_FIND_DATAW found;
    const UniqueFindHandle search(FindFirstFileW((folder + L"\\*").c_str(), &found));
    while (search) {
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
            names.push_back(ToUtf8(found.cFileName));
        }
        if (!FindNextFileW(search.get(), &found)) break;
    }
    return names;
}

TEST_F(OutputFiles, StreamsAreUnchangedWithoutNames) {
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(ReadFileBytes(app.OutputFile()), "to output\r\n");
    EXPECT_EQ(ReadFileBytes(app.ErrorFile()), "to error\r\n");
    EXPECT_EQ(app.Log().Count("FindClass(\"java/io"), 0U);
}

TEST_F(OutputFiles, BothStreamsGoToTheirFiles) {
    NameBoth();
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(ReadFileBytes(OutputPath()), "to output\r\n");
    EXPECT_EQ(ReadFileBytes(ErrorPath()), "to error\r\n");
    EXPECT_EQ(ReadFileBytes(app.OutputFile()), "");
}

TEST_F(OutputFiles, OneStreamAloneCanBeRedirected) {
    settings.Application(L"Error File", ErrorPath());
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(ReadFileBytes(ErrorPath()), "to error\r\n");
    EXPECT_EQ(ReadFileBytes(app.OutputFile()), "to output\r\n");
}

TEST_F(OutputFiles, StreamIsSetBeforeTheMainClassIsLoaded) {
    settings.Application(L"Output File", OutputPath());
    settings.Application(L"Output Append", L"yes");
    EXPECT_EQ(Run(), 0);
    std::vector<std::string> calls = app.Log().Calls();
    calls.erase(std::find_if(calls.begin(), calls.end(),
                             [](const std::string& each) {
                                 return each.find("LauncherHelper") != std::string::npos;
                             }),
                calls.end());
    EXPECT_THAT(
        calls,
        IsSupersetOf(
            {"NewObject(java/io/FileOutputStream.<init>(Ljava/lang/String;Z)V, " +
                 TextInLog(OutputPath()) + ", true)",
             std::string("NewObject(java/io/PrintStream.<init>(Ljava/io/OutputStream;)V, object "
                         "java/io/FileOutputStream)"),
             std::string("CallStaticVoidMethod(java/lang/System.setOut(Ljava/io/PrintStream;)V, "
                         "object java/io/PrintStream)")}));
}

TEST_F(OutputFiles, FileIsTruncated) {
    NameBoth();
    app.AddFile(L"out.txt", "an older and longer text\r\n");
    app.AddFile(L"err.txt", "an older and longer text\r\n");
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(ReadFileBytes(OutputPath()), "to output\r\n");
    EXPECT_EQ(ReadFileBytes(ErrorPath()), "to error\r\n");
}

TEST_F(OutputFiles, FileIsAppendedToWithYes) {
    NameBoth();
    settings.Application(L"Output Append", L"yes");
    settings.Application(L"Error Append", L"yes");
    app.AddFile(L"out.txt", "old\r\n");
    app.AddFile(L"err.txt", "old\r\n");
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(ReadFileBytes(OutputPath()), "old\r\nto output\r\n");
    EXPECT_EQ(ReadFileBytes(ErrorPath()), "old\r\nto error\r\n");
}

TEST_F(OutputFiles, AnyOtherAppendWordTruncates) {
    NameBoth();
    settings.Application(L"Output Append", L"Yes");
    settings.Application(L"Error Append", L"true");
    app.AddFile(L"out.txt", "old\r\n");
    app.AddFile(L"err.txt", "old\r\n");
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(ReadFileBytes(OutputPath()), "to output\r\n");
    EXPECT_EQ(ReadFileBytes(ErrorPath()), "to error\r\n");
}

TEST_F(OutputFiles, MissingFoldersOfAnAbsoluteNameAreCreated) {
    settings.Application(L"Output File", app.Path(L"logs\\a\\b\\out.txt"));
    std::wstring slashed = app.Path(L"errors/c/err.txt");
    settings.Application(L"Error File", slashed);
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(ReadFileBytes(app.Path(L"logs\\a\\b\\out.txt")), "to output\r\n");
    EXPECT_EQ(ReadFileBytes(app.Path(L"errors\\c\\err.txt")), "to error\r\n");
}

TEST_F(OutputFiles, RelativeNameGetsNoFolders) {
    app.directory = app.folder();
    ExpectOnlyErrorsRedirected(L"logs\\out.txt");
    EXPECT_FALSE(PathExists(app.Path(L"logs")));
}

TEST_F(OutputFiles, RelativeNameIsRelativeToTheWorkingDirectory) {
    app.directory = app.AddFolder(L"work");
    settings.Application(L"Output File", L"out.txt");
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(ReadFileBytes(app.Path(L"work\\out.txt")), "to output\r\n");
}

TEST_F(OutputFiles, BothNamesGetTheSameInstant) {
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

TEST_F(OutputFiles, PictureInAFoldersNameCreatesThatFolder) {
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

TEST_F(OutputFiles, SinglePercentSignIsRemoved) {
    settings.Application(L"Output File", app.Path(L"logs\\100%.txt"));
    EXPECT_EQ(Run(), 0);
    EXPECT_THAT(FilesIn(app.Path(L"logs")), ElementsAre("100.txt"));
}

TEST_F(OutputFiles, EnvironmentVariableWinsOverAPictureOfItsName) {
    app.environment[L"yyyy"] = L"variable";
    settings.Application(L"Output File", app.Path(L"logs\\%yyyy%.txt"));
    EXPECT_EQ(Run(), 0);
    EXPECT_THAT(FilesIn(app.Path(L"logs")), ElementsAre("variable.txt"));
}

TEST_F(OutputFiles, PictureThatIsTooLongIsRemoved) {
    settings.Application(L"Output File",
                         app.Path(L"logs\\a%" + std::wstring(300, L'_') + L"%b.txt"));
    settings.Application(L"Error File", app.Path(L"logs\\c%" + Repeated(L"dddd ", 60) + L"%d.txt"));
    EXPECT_EQ(Run(), 0);
    EXPECT_THAT(FilesIn(app.Path(L"logs")), testing::UnorderedElementsAre("ab.txt", "cd.txt"));
}

TEST_F(OutputFiles, NameOutsideTheCodePageIsKept) {
    const std::wstring path = app.Path(L"\u4e16\u754c \u0416\\\U0001F600.txt");
    settings.Application(L"Output File", path);
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(ReadFileBytes(path), "to output\r\n");
}

TEST_F(OutputFiles, BothStreamsMayGoToOneFile) {
    settings.Application(L"Output File", OutputPath());
    settings.Application(L"Output Append", L"yes");
    settings.Application(L"Error File", OutputPath());
    settings.Application(L"Error Append", L"yes");
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(ReadFileBytes(OutputPath()), "to output\r\nto error\r\n");
}

}  // namespace
}  // namespace tarn::test
