// Further sources outside the registry: `JAVA_HOME`, the process's `Path` and the folders of
// makers.

#include "base/handles.h"
#include "tests/support/further_sources_fixture.h"

namespace tarn::test {
namespace {

using JavaHome = FurtherSourcesFixture;

/// Appends zeros, for which the file systems of the tests reserve no space.
void EnlargeFile(const std::wstring& path, LONGLONG size) {
    const UniqueFile file(
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(file);
    LARGE_INTEGER end;
    end.QuadPart = size;
    EXPECT_TRUE(SetFilePointerEx(file.get(), end, nullptr, FILE_BEGIN));
    EXPECT_TRUE(SetEndOfFile(file.get()));
}

TEST_F(JavaHome, IsUsedWithTheVersionOfItsReleaseFile) {
    app.AddRuntime(L"home");
    AddRelease(L"home", "17.0.9");
    app.environment[L"JAVA_HOME"] = app.Path(L"home");
    Name(L"java_home");
    settings.Runtime(L"Minimum Version", L"17").Runtime(L"Maximum Version", L"17");
    EXPECT_EQ(Chosen(), In("home"));
    settings.Runtime(L"Maximum Version", L"any").Runtime(L"Minimum Version", L"17.0.10");
    EXPECT_EQ(Chosen(), "nothing");
}

TEST_F(JavaHome, MayBeMissingLongOrNoFolder) {
    Name(L"java_home;path");
    EXPECT_EQ(Chosen(), "nothing");
    for (const std::wstring& home :
         {std::wstring(20000, L'x'), std::wstring(L"jre"), std::wstring(L"Q:\\jdk"),
          std::wstring(L"C:\\" + std::wstring(1021, L'x'))}) {
        app.environment[L"JAVA_HOME"] = home;
        EXPECT_EQ(Chosen(), "nothing");
    }
}

TEST_F(JavaHome, MayHaveAReleaseFileOfAnySize) {
    app.AddRuntime(L"home");
    app.environment[L"JAVA_HOME"] = app.Path(L"home");
    Name(L"java_home");
    settings.Runtime(L"Minimum Version", L"17");
    EnlargeFile(app.AddFile(L"home\\release", "JAVA_VERSION=\"17.0.9\"\n"), LONGLONG{1} << 30);
    EXPECT_EQ(Chosen(), In("home"));
    app.AddFile(L"home\\release", std::string(std::size_t{65} << 10, '\n') + "JAVA_VERSION=17\n");
    EXPECT_EQ(Chosen(), "nothing");
    app.AddFile(L"home\\release", "JAVA_VERSION=\"" + std::string(60000, '1'));
    EXPECT_EQ(Chosen(), "nothing");
}

using JavaInPath = FurtherSourcesFixture;

TEST_F(JavaInPath, IsTheParentOfTheFirstFolderWithAJavaProgram) {
    app.AddRuntime(L"first");
    app.AddRuntime(L"second");
    app.AddFile(L"second\\bin\\java.exe");
    Name(L"path");
    const std::wstring folders = L"jre;;\"Q:\\gone\";C:\\windows;" + app.Path(L"first\\bin") +
                                 L";\"" + app.Path(L"second\\bin\\") + L"\";";
    app.environment[L"Path"] = folders;
    EXPECT_EQ(Chosen(), In("second"));
}

/// Runtimes in the machine's program files folder, newer than whatever is installed there: Wine
/// sets the variable of that folder in each process.
class MakerFolders : public FurtherSourcesFixture {
  protected:
    MakerFolders() {
        Name(L"folders");
        settings.Runtime(L"Minimum Version", L"60000");
        wchar_t programs[MAX_PATH] = {};
        EXPECT_NE(GetEnvironmentVariableW(L"ProgramFiles", programs, MAX_PATH), 0U);
        programs_ = std::wstring(programs) + L'\\';
    }
    ~MakerFolders() override {
        for (const std::wstring& folder : made_) RemoveFolder(folder);
    }

    /// Creates a runtime in `home`. Returns the path of its library.
    std::string AddHome(const std::wstring& home, int version, bool hasCompiler = false) {
        const std::wstring library = home + L"\\bin\\server\\jvm.dll";
        std::wstring topmost;
        for (std::size_t end = home.find(L'\\', 3);; end = home.find(L'\\', end + 1)) {
            topmost = home.substr(0, end);
            const DWORD attributes = GetFileAttributesW(topmost.c_str());
            if (attributes == INVALID_FILE_ATTRIBUTES || end == std::wstring::npos) break;
        }
        made_.push_back(topmost);
        CreateFolders(home + L"\\bin\\server");
        app.AddRuntime(L"template");
        WriteFileBytes(library, ReadFileBytes(app.Path(L"template\\bin\\server\\jvm.dll")));
        WriteFileBytes(home + L"\\release",
                       "JAVA_VERSION=\"60000." + std::to_string(version) + '"');
        if (hasCompiler) WriteFileBytes(home + L"\\bin\\javac.exe", "");
        return ToUtf8(library);
    }

    std::wstring programs_;

  private:
    std::vector<std::wstring> made_;
};

TEST_F(MakerFolders, AreEachSearched) {
    int version = 0;
    for (const wchar_t* const folder : {L"Java", L"Eclipse Adoptium", L"Semeru", L"Microsoft",
                                        L"Zulu", L"Amazon Corretto", L"BellSoft"}) {
        const std::string library = AddHome(programs_ + folder + L"\\tarn test", ++version);
        EXPECT_THAT(Chosen(), testing::HasSubstr(library));
    }
    AddHome(app.Path(L"local\\Programs\\Eclipse Adoptium\\jdk"), ++version);
    EXPECT_EQ(Chosen(), In("local\\Programs\\Eclipse Adoptium\\jdk"));
}

TEST_F(MakerFolders, MayContainAnythingElse) {
    app.AddFile(L"local\\Programs\\Eclipse Adoptium\\file");
    app.AddFolder(L"local\\Programs\\Eclipse Adoptium\\folder");
    EXPECT_EQ(Chosen(), "nothing");
}

TEST_F(MakerFolders, DistinguishKindsByTheCompiler) {
    const std::string jdk = AddHome(programs_ + L"Java\\tarn jdk", 2, true);
    const std::string jre = AddHome(programs_ + L"Zulu\\tarn jre", 1);
    EXPECT_THAT(Chosen(), testing::HasSubstr(jdk));
    settings.Runtime(L"JVM Source", L"only_JRE");
    EXPECT_THAT(Chosen(), testing::HasSubstr(jre));
    settings.Runtime(L"JVM Source", L"only_JDK");
    EXPECT_THAT(Chosen(), testing::HasSubstr(jdk));
}

}  // namespace
}  // namespace tarn::test
