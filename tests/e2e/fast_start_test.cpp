// "Fast Start": the option for the archive of the application's classes, and the files beside it.

#include <algorithm>
#include <cstring>

#include "base/handles.h"
#include "tests/support/fake_jvm_fixture.h"

namespace tarn::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

/// A jar, for whoever reads its directory only: that has these bytes.
std::string JarWith(const std::string& directory) {
    std::string end = "PK\x05\x06";
    end.resize(22, '\0');
    const auto size = static_cast<std::uint32_t>(directory.size());
    std::memcpy(end.data() + 12, &size, sizeof size);
    return std::string(100'000, 'x') + directory + end;
}

class FastStart : public FakeJvmFixture {
  protected:
    FastStart() {
        app.AddFile(L"jre\\release", "JAVA_VERSION=\"21.0.8\"\n");
        AddJar(L"app.jar", "first");
        settings.Set(L"Class Path", L"Class Path", L"app.jar");
        settings.Application(L"Fast Start", app.Path(L"local\\x\\Notes"));
        app.AddFolder(L"local");
    }

    /// Adds a jar whose size and time are always the same.
    void AddJar(std::wstring_view name, const std::string& directory) {
        const std::wstring path = app.AddFile(name, JarWith(directory));
        const UniqueFile file(CreateFileW(path.c_str(), FILE_WRITE_ATTRIBUTES, 0, nullptr,
                                          OPEN_EXISTING, 0, nullptr));
        const FILETIME time{0, 0x01D9'0000};
        EXPECT_TRUE(SetFileTime(file.get(), &time, &time, &time));
    }

    /// The options after the class path.
    std::vector<std::string> OptionsOfARun() {
        DeleteFileW(app.LogFile().c_str());
        EXPECT_EQ(Run(), 0);
        auto options = app.Log().Options();
        if (!options.empty()) options.erase(options.begin());
        return options;
    }

    /// The name of the archive that a launch writes.
    std::wstring NameOfARun() {
        const auto options = OptionsOfARun();
        if (options.size() != 1) return L"";
        EXPECT_THAT(options.front(), StartsWith("\"-XX:ArchiveClassesAtExit="));
        std::string name = options.front().substr(options.front().rfind('\\') + 1);
        name.pop_back();  // the quote of the log
        return {name.begin(), name.end()};
    }

    bool Exists(const std::wstring& name) const {
        const DWORD attributes = GetFileAttributesW(app.Path(L"local\\x\\" + name).c_str());
        return attributes != INVALID_FILE_ATTRIBUTES;
    }
};

TEST_F(FastStart, TheFirstStartWritesAnArchiveInAFolderThatItCreates) {
    const std::wstring name = NameOfARun();
    EXPECT_THAT(ToUtf8(name), testing::MatchesRegex("Notes-\\w+-\\w+\\.jsa"));
    EXPECT_EQ(name.size(), std::size("Notes-01234567-0123456789abcdef.jsa") - 1);
    EXPECT_TRUE(Exists(L""));
    EXPECT_FALSE(Exists(name + L"~"));  // while the process runs
}

TEST_F(FastStart, ALaterStartReadsTheArchive) {
    const std::wstring name = NameOfARun();
    app.AddFile(L"local\\x\\" + name, "archive");
    EXPECT_THAT(OptionsOfARun(),
                ElementsAre(AnsiInLog(L"-XX:SharedArchiveFile=" + app.Path(L"local\\x\\" + name))));
}

TEST_F(FastStart, AnArchiveWithoutItsHeaderIsWrittenAgain) {
    const std::wstring name = NameOfARun();
    app.AddFile(L"local\\x\\" + name, std::string(1000, '\0'));
    EXPECT_EQ(NameOfARun(), name);
    app.AddFile(L"local\\x\\" + name, "");
    EXPECT_EQ(NameOfARun(), name);
}

TEST_F(FastStart, AReplacedJarOfEqualTimeAndSizeGetsAnotherArchive) {
    const std::wstring name = NameOfARun();
    AddJar(L"app.jar", "other");
    const std::wstring other = NameOfARun();
    EXPECT_NE(other, name);
    AddJar(L"app.jar", "first");
    EXPECT_EQ(NameOfARun(), name);
}

TEST_F(FastStart, TheListedJarsAreComparedToo) {
    settings.Application(L"Fast Start",
                         app.Path(L"local\\x\\Notes") + L";" + app.Path(L"modules\\a.jar"));
    AddJar(L"modules\\a.jar", "first");
    const std::wstring name = NameOfARun();
    AddJar(L"modules\\a.jar", "other");
    EXPECT_NE(NameOfARun(), name);
}

TEST_F(FastStart, ARuntimeOfAnotherVersionAndOtherParametersGetAnotherArchive) {
    const std::wstring name = NameOfARun();
    app.AddFile(L"jre\\release", "JAVA_VERSION=\"21.0.9\"\n");
    const std::wstring other = NameOfARun();
    EXPECT_NE(other, name);
    settings.Runtime(L"Virtual Machine Parameters", L"-Da=b");
    const auto options = OptionsOfARun();
    ASSERT_EQ(options.size(), 2U);
    EXPECT_THAT(options[1], Not(HasSubstr(ToUtf8(other))));
}

TEST_F(FastStart, OldArchivesOfTheInstallationAreRemovedAndNothingElse) {
    const std::wstring name = NameOfARun();
    std::wstring old = name;
    old[old.size() - 6] = old[old.size() - 6] == L'0' ? L'1' : L'0';
    std::wstring ofAnother = name;
    ofAnother[8] = ofAnother[8] == L'0' ? L'1' : L'0';
    const std::wstring longer = name.substr(0, name.size() - 4) + L"0.jsa";
    for (const std::wstring& file : {name, old, ofAnother, longer}) {
        const std::wstring path = app.AddFile(L"local\\x\\" + file, "archive");
        // As the JVM leaves it.
        EXPECT_TRUE(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY));
    }
    OptionsOfARun();
    EXPECT_TRUE(Exists(name));
    EXPECT_FALSE(Exists(old));
    EXPECT_TRUE(Exists(ofAnother));
    EXPECT_TRUE(Exists(longer));
    for (const std::wstring& file : {name, ofAnother, longer}) {
        SetFileAttributesW(app.Path(L"local\\x\\" + file).c_str(), FILE_ATTRIBUTE_NORMAL);
    }
}

TEST_F(FastStart, WhileAnotherProcessIsToWriteTheArchiveNoneIsWritten) {
    const std::wstring path = app.Path(L"local\\x\\" + NameOfARun() + L"~");
    const UniqueFile lock(
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    ASSERT_TRUE(!!lock);
    EXPECT_THAT(OptionsOfARun(), IsEmpty());
}

TEST_F(FastStart, WhileAnotherProcessWritesTheArchiveItIsNotRead) {
    const std::wstring name = NameOfARun();
    const UniqueFile lock(CreateFileW(app.Path(L"local\\x\\" + name + L"~").c_str(), GENERIC_WRITE,
                                      0, nullptr, CREATE_ALWAYS, 0, nullptr));
    ASSERT_TRUE(!!lock);
    app.AddFile(L"local\\x\\" + name, std::string(1000, '\0'));
    EXPECT_THAT(OptionsOfARun(), IsEmpty());
}

TEST_F(FastStart, AFolderThatCannotBeCreatedGetsNoArchive) {
    app.AddFile(L"local\\x", "a file");
    EXPECT_THAT(OptionsOfARun(), IsEmpty());
}

TEST_F(FastStart, ARuntimeThatWritesNoArchivesGetsNoOption) {
    for (const char* const release :
         {"JAVA_VERSION=\"11.0.13\"\n", "JAVA_VERSION=\"17.0.9\"\n", ""}) {
        app.AddFile(L"jre\\release", release);
        EXPECT_THAT(OptionsOfARun(), IsEmpty()) << release;
    }
    DeleteFileW(app.Path(L"jre\\release").c_str());
    EXPECT_THAT(OptionsOfARun(), IsEmpty());
    EXPECT_FALSE(Exists(L""));
}

TEST_F(FastStart, AClassPathWithAFolderOrAnotherFileGetsNoOption) {
    app.AddFile(L"other.jar", "no jar");
    for (const wchar_t* const path : {L"app.jar;jre", L"app.jar;other.jar", L"C:\\none.jar"}) {
        settings.Set(L"Class Path", L"Class Path", path);
        EXPECT_THAT(OptionsOfARun(), IsEmpty()) << ToUtf8(path);
    }
}

TEST_F(FastStart, TheOptionsOfTheSettingsTakePrecedence) {
    settings.Runtime(L"Virtual Machine Parameters", L"-XX:SharedArchiveFile=C:\\x.jsa");
    EXPECT_THAT(OptionsOfARun(), ElementsAre(R"("-XX:SharedArchiveFile=C:\x.jsa")"));
}

TEST_F(FastStart, OptionsWithWhichAJvmThatWritesAnArchiveDoesNotStartTakePrecedence) {
    settings.Runtime(L"Virtual Machine Parameters", L"-agentlib:jdwp=server=y");
    EXPECT_THAT(OptionsOfARun(), ElementsAre(R"("-agentlib:jdwp=server=y")"));
    app.environment[L"TARN_TEST_OPTIONS"] = L"-javaagent:a.jar";
    settings.Runtime(L"Virtual Machine Parameters", L"%TARN_TEST_OPTIONS%");
    EXPECT_THAT(OptionsOfARun(), ElementsAre(R"("-javaagent:a.jar")"));
}

TEST_F(FastStart, OptionsOfTheEnvironmentTakePrecedence) {
    for (const wchar_t* const name : {L"JAVA_TOOL_OPTIONS", L"_JAVA_OPTIONS"}) {
        app.environment[name] = L"-javaagent:C:\\agent.jar";
        EXPECT_THAT(OptionsOfARun(), IsEmpty()) << ToUtf8(name);
        app.environment[name] = L"-Da=b -agentlib:jdwp=server=y";
        EXPECT_THAT(OptionsOfARun(), IsEmpty()) << ToUtf8(name);
        app.environment[name] = L"-Da=b -Xmx1g";
        EXPECT_NE(NameOfARun(), L"") << ToUtf8(name);
    }
}

TEST_F(FastStart, ANameWithoutABackslashIsTheNameOfNoFolder) {
    settings.Application(L"Override WorkingDir", L"Yes");
    settings.Application(L"Fast Start", L"Notes");
    const auto options = OptionsOfARun();
    ASSERT_EQ(options.size(), 1U);
    const std::string name = options.front().substr(options.front().find('=') + 1);
    EXPECT_THAT(name, testing::MatchesRegex("Notes-.+\\.jsa\""));
    const std::wstring file(name.begin(), name.end() - 1);  // without the quote of the log
    EXPECT_EQ(GetFileAttributesW(app.Path(file).c_str()), INVALID_FILE_ATTRIBUTES);
}

}  // namespace
}  // namespace tarn::test
