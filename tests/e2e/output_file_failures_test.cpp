// Java's standard streams when a file cannot be opened or a JNI call fails.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "base/handles.h"
#include "tests/support/output_files_fixture.h"

namespace tarn::test {
namespace {

using testing::IsEmpty;

class OutputFileFailure : public OutputFilesFixture {};

TEST_F(OutputFileFailure, FolderWithTheFilesNameIsDescribed) {
    app.AddFolder(L"out.txt");
    ExpectOnlyErrorsRedirected(OutputPath());
}

TEST_F(OutputFileFailure, FileThatAnotherProgramHasOpenIsDescribedAndKept) {
    const std::wstring path = app.AddFile(L"out.txt", "old");
    {
        const UniqueFile held(CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                          FILE_ATTRIBUTE_NORMAL, nullptr));
        ASSERT_TRUE(held);
        ExpectOnlyErrorsRedirected(path);
    }
    EXPECT_EQ(ReadFileBytes(path), "old");
}

TEST_F(OutputFileFailure, ReadOnlyFileIsKept) {
    const std::wstring path = app.AddFile(L"out.txt", "old");
    ASSERT_TRUE(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY));
    // Under Wine the superuser can write to it nevertheless.
    const bool keeps =
        !UniqueFile(CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    settings.Application(L"Output File", path);
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(app.Log().Count("ExceptionDescribe"), keeps ? 1U : 0U);
    EXPECT_EQ(ReadFileBytes(path), keeps ? "old" : "to output\r\n");
    SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(OutputFileFailure, FileWithAFoldersNameIsDescribed) {
    app.AddFile(L"logs", "a file");
    ExpectOnlyErrorsRedirected(app.Path(L"logs\\a\\out.txt"));
    EXPECT_EQ(ReadFileBytes(app.Path(L"logs")), "a file");
}

TEST_F(OutputFileFailure, InvalidCharactersAreDescribed) {
    ExpectOnlyErrorsRedirected(app.Path(L"logs\\a<b>|\"?*.txt"));
}

/// A long absolute name with many folders. Wine accepts longer ones than Windows does: either the
/// file exists afterwards or the failure was described.
class LongOutputName : public OutputFilesFixture,
                       public testing::WithParamInterface<std::size_t> {};

TEST_P(LongOutputName, IsOpenedOrDescribed) {
    std::wstring name = app.Path(L"deep");
    while (name.size() + 12 < GetParam()) name += L"\\0123456789";
    name += L'\\';
    name.resize(GetParam(), L'x');
    NameBoth();
    settings.Application(L"Output File", name);
    EXPECT_EQ(Run(), 0);
    EXPECT_TRUE(PathExists(app.Path(L"deep")));
    EXPECT_EQ(ReadFileBytes(ErrorPath()), "to error\r\n");
    const std::size_t opened = app.Log().Count("CallStaticVoidMethod(java/lang/System.setOut");
    EXPECT_EQ(app.Log().Count("ExceptionDescribe"), 1U - opened);
    EXPECT_EQ(ReadFileBytes(app.OutputFile()), opened == 1 ? "" : "to output\r\n");
}

INSTANTIATE_TEST_SUITE_P(Characters, LongOutputName, testing::Values(260, 1'000, 32'000));

TEST_F(OutputFileFailure, LongFileNameIsDescribed) {
    ExpectOnlyErrorsRedirected(app.Path(std::wstring(1'000, L'x')));
}

/// A failure in the redirection of the standard output.
struct FailedStep {
    const char* name;
    const char* script;
    bool leavesException;
};

class FailedRedirection : public OutputFilesFixture,
                          public testing::WithParamInterface<FailedStep> {};

TEST_P(FailedRedirection, KeepsTheStreamAndTriesTheOther) {
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

TEST_F(OutputFileFailure, ErrorStreamThatFailsIsDescribedAndTheOtherIsRedirected) {
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

TEST_F(OutputFileFailure, BothStreamsStayWhenAClassIsMissing) {
    app.WriteScript(std::string(kPrints) + "no_class java/io/FileOutputStream");
    NameBoth();
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(ReadFileBytes(app.OutputFile()), "to output\r\n");
    EXPECT_EQ(ReadFileBytes(app.ErrorFile()).find("to error\r\n") != std::string::npos, true);
    EXPECT_EQ(app.Log().Count("ExceptionDescribe"), 2U);
}

}  // namespace
}  // namespace tarn::test
