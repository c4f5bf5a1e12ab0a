// The class path: absolute entries, relative ones, wildcards, the embedded jar.

#include "base/handles.h"
#include "tests/support/fake_jvm_fixture.h"

namespace tarn::test {
namespace {

class ClassPathEntries : public FakeJvmFixture {
  protected:
    /// The class path option for this setting.
    std::string OptionOf(std::wstring_view classPath) {
        settings.Set(L"Class Path", L"Class Path", classPath);
        EXPECT_EQ(Run(), 0);
        const auto options = app.Log().Options();
        return options.empty() ? std::string() : options.front();
    }

    static std::string Expected(std::wstring_view classPath) {
        return AnsiInLog(L"-Djava.class.path=" + std::wstring(classPath));
    }

    /// The matches of the file system, in its order, each after the folder.
    static std::wstring Matches(const std::wstring& folder, const std::wstring& pattern) {
        std::wstring all;
        WIN32_FIND_DATAW found{};
        const UniqueFindHandle search(FindFirstFileW((folder + pattern).c_str(), &found));
        for (BOOL more = search ? TRUE : FALSE; more; more = FindNextFileW(search.get(), &found)) {
            all += folder + found.cFileName + L';';
        }
        return all;
    }
};

TEST_F(ClassPathEntries, AbsoluteEntriesNeedNotExist) {
    EXPECT_EQ(OptionOf(L"C:\\none\\a.jar;;\\\\server\\share\\b.jar;"),
              Expected(L"C:\\none\\a.jar;\\\\server\\share\\b.jar;"));
}

TEST_F(ClassPathEntries, RelativeEntriesMustExistInTheLaunchersFolder) {
    app.AddFile(L"lib\\a.jar");
    app.AddFile(L"b.jar");
    app.AddFolder(L"classes");
    EXPECT_EQ(OptionOf(L"lib\\a.jar;missing.jar;b.jar;classes;x"),
              Expected(app.Path(L"lib\\a.jar") + L';' + app.Path(L"b.jar") + L';' +
                       app.Path(L"classes") + L';'));
}

TEST_F(ClassPathEntries, RelativeEntriesDoNotDependOnTheDirectory) {
    app.AddFile(L"a.jar");
    app.directory = app.AddFolder(L"elsewhere");
    app.AddFile(L"elsewhere\\b.jar");
    EXPECT_EQ(OptionOf(L"a.jar;b.jar"), Expected(app.Path(L"a.jar") + L';'));
}

TEST_F(ClassPathEntries, AreNotTrimmed) {
    app.AddFile(L"a.jar");
    EXPECT_EQ(OptionOf(L"C:\\x.jar ; a.jar"),
              Expected(L"C:\\x.jar ;" + Matches(app.folder(), L" a.jar")));
}

TEST_F(ClassPathEntries, VariablesAreExpandedFirst) {
    app.environment[L"TARN_PROBE"] = L"C:\\probe";
    EXPECT_EQ(OptionOf(L"%TARN_PROBE%\\a.jar;%TARN_UNKNOWN%;C:\\%%"),
              Expected(L"C:\\probe\\a.jar;C:\\%%;"));
}

TEST_F(ClassPathEntries, WildcardsExpandInTheFileSystemsOrder) {
    for (const wchar_t* name : {L"c.jar", L"a.jar", L"\u00E9.jar", L"B.jar", L"z.txt"}) {
        app.AddFile(std::wstring(L"lib\\") + name);
    }
    const std::wstring matches = Matches(app.Path(L"lib\\"), L"*.jar");
    EXPECT_NE(matches.find(L"B.jar"), std::wstring::npos);
    EXPECT_EQ(OptionOf(L"lib\\*.jar;C:\\last.jar"), Expected(matches + L"C:\\last.jar;"));
}

TEST_F(ClassPathEntries, AbsoluteWildcardsAreExpandedToo) {
    app.AddFile(L"lib\\a.jar");
    EXPECT_EQ(OptionOf(app.Path(L"lib\\*.jar") + L";C:\\none\\*.jar"),
              Expected(app.Path(L"lib\\a.jar") + L';'));
}

TEST_F(ClassPathEntries, WildcardMatchesAreNotFiltered) {
    app.AddFile(L"lib\\a.jar");
    app.AddFolder(L"lib\\folder");
    const std::wstring matches = Matches(app.Path(L"lib\\"), L"*");
    EXPECT_NE(matches.find(L"\\.;"), std::wstring::npos);
    EXPECT_EQ(OptionOf(L"lib\\*"), Expected(matches));
}

TEST_F(ClassPathEntries, AThousandKeepTheirOrder) {
    std::wstring classPath;
    for (int i = 0; i < 1000; ++i) classPath += L"C:\\lib\\" + std::to_wstring(i) + L".jar;";
    EXPECT_EQ(OptionOf(classPath), Expected(classPath));
}

TEST_F(ClassPathEntries, ThirtyTwoThousandCharactersReachTheJvm) {
    const std::wstring classPath = L"C:\\" + Repeated(L"0123456789abcdef", 2000) + L';';
    EXPECT_EQ(OptionOf(classPath), Expected(classPath));
}

TEST_F(ClassPathEntries, TheEmbeddedJarComesFirstAndTheWordIsCaseInsensitive) {
    settings.Application(L"Embedded Jar", L"yES");
    EXPECT_EQ(OptionOf(L"C:\\a.jar"), Expected(app.Executable() + L";C:\\a.jar;"));
}

TEST_F(ClassPathEntries, TheEmbeddedJarAloneIsEnough) {
    settings.Application(L"Embedded Jar", L"Yes");
    EXPECT_EQ(OptionOf(L""), Expected(app.Executable() + L';'));
}

TEST_F(ClassPathEntries, OtherWordsDoNotAddTheEmbeddedJar) {
    settings.Application(L"Embedded Jar", L"true");
    EXPECT_EQ(OptionOf(L"C:\\a.jar"), Expected(L"C:\\a.jar;"));
}

}  // namespace
}  // namespace tarn::test
