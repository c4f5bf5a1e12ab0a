// The settings file on the disk: its location, its encodings, and files with other contents.

#include <random>

#include "tests/support/fake_jvm_fixture.h"
#include "tests/support/named_event.h"
#include "tests/support/paths.h"

namespace tarn::test {
namespace {

constexpr wchar_t kNoMainClass[] = L"Main class was not specified in INI file.";

class SettingsFiles : public FakeJvmFixture {
  protected:
    /// Starts with the file unchanged, which must not name a main class.
    void ExpectNoMainClass() {
        const auto process = app.Launch();
        EXPECT_EQ(ToUtf8(CloseErrorBox(*process)), ToUtf8(kNoMainClass));
        EXPECT_EQ(process->ExitCode(), -1);
    }

    /// Starts with the file unchanged. Returns the arguments of main, which are those of "Cmd".
    std::string MainArgumentsOfTheFile() {
        EXPECT_EQ(app.Launch()->ExitCode(), 0);
        return MainArguments();
    }
};

TEST_F(SettingsFiles, ThatAreMissingNameNoMainClass) {
    ExpectNoMainClass();
}

TEST_F(SettingsFiles, ThatAreEmptyNameNoMainClass) {
    app.WriteSettingsBytes("");
    ExpectNoMainClass();
}

TEST_F(SettingsFiles, OfRandomBytesNameNoMainClass) {
    std::mt19937 random(20'240'601);
    for (int round = 0; round < 5; ++round) {
        std::string bytes(50'000, '\0');
        for (char& byte : bytes) byte = static_cast<char>(random());
        app.WriteSettingsBytes(bytes);
        ExpectNoMainClass();
    }
}

TEST_F(SettingsFiles, OfZerosAndIncompleteMarksNameNoMainClass) {
    for (const std::string& bytes : {std::string(10'000, '\0'), std::string("\xFF\xFE"),
                                     std::string("\xFF"), std::string("\xEF\xBB\xBF"),
                                     std::string("\xFF\xFE[", 3), std::string("[[[[====\r\n]]]")}) {
        app.WriteSettingsBytes(bytes);
        ExpectNoMainClass();
    }
}

TEST_F(SettingsFiles, AnEmptyMainClassIsMissing) {
    settings.Runtime(L"Main Class", L"");
    EXPECT_EQ(RunWithErrorBox(kNoMainClass), -1);
    EXPECT_EQ(app.Log().Count("jvm.dll loaded"), 0U);
}

TEST_F(SettingsFiles, InUtf16MayContainAnyText) {
    settings.Application(L"Cmd", L"\u8A66\u00E9\xD83D\xDE00");
    app.WriteSettings(settings);
    EXPECT_EQ(MainArgumentsOfTheFile(), "[\"\xE8\xA9\xA6\xC3\xA9\xF0\x9F\x98\x80\"]");
}

TEST_F(SettingsFiles, InAnsiMayContainTheCodePagesLetters) {
    settings.Runtime(L"JRE Path", L"jre");
    settings.Application(L"Cmd", L"~");
    app.directory = app.folder();
    std::string bytes = ToUtf8(settings.Text());
    bytes.replace(bytes.find('~'), 1, "\xE9");
    app.WriteSettingsBytes(bytes);
    wchar_t letter[2] = L"";
    MultiByteToWideChar(CP_ACP, 0, "\xE9", 1, letter, 1);
    EXPECT_EQ(MainArgumentsOfTheFile(), '[' + TextInLog(letter) + "]");
}

TEST_F(SettingsFiles, InAsciiAreRead) {
    settings.Runtime(L"JRE Path", L"jre");
    app.directory = app.folder();
    app.WriteSettingsBytes(ToUtf8(settings.Text()));
    EXPECT_EQ(MainArgumentsOfTheFile(), "[]");
}

TEST_F(SettingsFiles, WithAUtf8MarkAreReadFromTheSecondLineAtTheLatest) {
    settings.Runtime(L"JRE Path", L"jre");
    app.directory = app.folder();
    // Windows reads the mark as text of the first line; Wine recognises it.
    app.WriteSettingsBytes("\xEF\xBB\xBF; a comment\r\n" + ToUtf8(settings.Text()));
    EXPECT_EQ(MainArgumentsOfTheFile(), "[]");
}

TEST_F(SettingsFiles, MayUseLineFeedsAlone) {
    settings.Runtime(L"JRE Path", L"jre");
    app.directory = app.folder();
    std::string bytes = ToUtf8(settings.Text());
    std::erase(bytes, '\r');
    app.WriteSettingsBytes(bytes);
    EXPECT_EQ(MainArgumentsOfTheFile(), "[]");
}

TEST_F(SettingsFiles, MayHaveTenMegabytes) {
    std::wstring text = L"[Filler]\r\n";
    for (int i = 0; i < 100'000; ++i) {
        text += L"key" + std::to_wstring(i) + L"=" + L"0123456789012345678901234567890123456\r\n";
    }
    settings.Application(L"Cmd", L"behind");
    app.WriteSettings(text + settings.Text());
    ASSERT_GT(ReadFileBytes(app.SettingsFile()).size(), 9'000'000U);
    EXPECT_EQ(MainArgumentsOfTheFile(), "[\"behind\"]");
}

TEST_F(SettingsFiles, MayContainValuesOfAnyLength) {
    // Around the sizes of the growing buffers.
    for (const std::size_t length :
         {254U, 255U, 256U, 257U, 300U, 510U, 511U, 512U, 1023U, 30'000U}) {
        SCOPED_TRACE(length);
        DeleteFileW(app.LogFile().c_str());
        const std::wstring value = Repeated(L"v", length);
        settings.Application(L"Cmd", value);
        EXPECT_EQ(Run(), 0);
        EXPECT_EQ(MainArguments(), "[\"" + ToUtf8(value) + "\"]");
    }
}

TEST_F(SettingsFiles, HaveTheExecutablesNameUpToItsLastDot) {
    app.WriteSettings(settings);
    const std::wstring program = app.Path(L"my.app v1.2.exe");
    ASSERT_TRUE(CopyFileW(app.Executable().c_str(), program.c_str(), FALSE));
    ASSERT_TRUE(MoveFileW(app.SettingsFile().c_str(), app.Path(L"my.app v1.2.ini").c_str()));
    auto start = app.StartWith(L'"' + program + L'"');
    start.program = program;
    EXPECT_EQ(LaunchedProcess(start).ExitCode(), 0);
    EXPECT_EQ(MainArguments(), "[]");
}

TEST_F(SettingsFiles, OfAProgramWithoutExtensionHaveAFoldersName) {
    const std::wstring program = app.Path(L"v1.2 beta\\sample");
    app.AddFolder(L"v1.2 beta");
    app.WriteSettings(settings);
    ASSERT_TRUE(CopyFileW(app.Executable().c_str(), program.c_str(), FALSE));
    ASSERT_TRUE(MoveFileW(app.SettingsFile().c_str(), app.Path(L"v1.ini").c_str()));
    auto start = app.StartWith(L'"' + program + L'"');
    start.program = program;
    EXPECT_EQ(LaunchedProcess(start).ExitCode(), 0);
    EXPECT_EQ(MainArguments(), "[]");
}

TEST_F(SettingsFiles, AreClosedAfterReading) {
    NamedEvent end;
    app.WriteScript("main = wait_event " + end.utf8Name());
    const auto process = Start();
    ASSERT_TRUE(app.Log().WaitFor("CallStaticVoidMethod"));
    EXPECT_TRUE(DeleteFileW(app.SettingsFile().c_str()));
    end.Set();
    EXPECT_EQ(process->ExitCode(), 0);
}

TEST_F(SettingsFiles, HaveNoNameWhenTheProgramsPathHasNoDot) {
    const std::wstring program = app.Path(L"sample");
    ASSERT_TRUE(CopyFileW(app.Executable().c_str(), program.c_str(), FALSE));
    auto start = app.StartWith(L'"' + program + L'"');
    start.program = program;
    const LaunchedProcess process(start);
    // A settings path exists only when the path of the temporary folder contains a dot.
    if (app.folder().find(L'.') != std::wstring::npos) CloseErrorBox(process);
    EXPECT_EQ(process.ExitCode(), -1);
}

class LongProgramPath : public SettingsFiles {
  protected:
    /// Copies the launcher to a path with that many characters. Returns the path without the prefix
    /// "\\?\".
    std::wstring CopyTo(std::size_t length) {
        std::wstring folder = L"\\\\?\\" + app.Path(L"long");
        CreateDirectoryW(folder.c_str(), nullptr);
        while (folder.size() < 200) {
            folder += L'\\' + Repeated(L"f", 40);
            CreateDirectoryW(folder.c_str(), nullptr);
        }
        folder += L'\\';
        const std::wstring program = folder + Repeated(L"s", length - folder.size()) + L".exe";
        EXPECT_TRUE(CopyFileW(app.Executable().c_str(), program.c_str(), FALSE));
        EXPECT_EQ(program.size() - 4, length);
        return program.substr(4);
    }
};

TEST_F(LongProgramPath, UpToTheOldLimitIsRead) {
    const std::wstring program = CopyTo(MAX_PATH - 1);
    auto start = app.StartWith(L"sample.exe");
    start.program = program;
    WriteFileBytes(L"\\\\?\\" + program.substr(0, program.size() - 3) + L"ini",
                   Utf16File(settings.Text()));
    EXPECT_EQ(LaunchedProcess(start).ExitCode(), 0);
    EXPECT_EQ(MainArguments(), "[]");
}

TEST_F(LongProgramPath, BeyondTheOldLimitCannotBeRead) {
    auto start = app.StartWith(L"sample.exe");
    start.program = L"\\\\?\\" + CopyTo(MAX_PATH);
    // Wine does not start a program with such a path, which is equally acceptable.
    if (IsWine()) {
        PROCESS_INFORMATION made{};
        STARTUPINFOW how{};
        how.cb = sizeof how;
        EXPECT_FALSE(CreateProcessW(start.program.c_str(), nullptr, nullptr, nullptr, FALSE, 0,
                                    nullptr, nullptr, &how, &made));
        return;
    }
    const LaunchedProcess process(start);
    EXPECT_EQ(ToUtf8(CloseErrorBox(process)),
              "Windows exception: failed to get the module path (errno = 122).\n");
    EXPECT_EQ(process.ExitCode(), -1);
}

}  // namespace
}  // namespace tarn::test
