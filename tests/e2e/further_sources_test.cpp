// "Further Sources": the places of other makers, which are searched when all other sources of a
// runtime have failed.

#include "base/handles.h"
#include "tests/support/jvm_files.h"
#include "tests/support/real_runtime_fixture.h"
#include "tests/support/registered_runtimes_fixture.h"

namespace tarn::test {
namespace {

constexpr wchar_t kMsiHome[] = L"Path";
constexpr wchar_t kNamedHome[] = L"InstallationPath";

/// An application that names its further sources. The folders and variables that the search reads
/// are the test's own.
class FurtherSources : public RegisteredRuntimesFixture {
  protected:
    FurtherSources() {
        Name(L"vendors");
        app.environment[L"LOCALAPPDATA"] = app.Path(L"local");
        app.environment[L"JAVA_HOME"] = std::nullopt;
        app.environment[L"Path"] = L"C:\\windows\\system32";
    }

    void Name(std::wstring_view words) { settings.Runtime(L"Further Sources", words); }

    TemporaryKey& AddKey(std::wstring_view key, HKEY hive = HKEY_LOCAL_MACHINE) {
        keys_.push_back(std::make_unique<TemporaryKey>(hive, L"SOFTWARE\\" + std::wstring(key)));
        return *keys_.back();
    }

    /// Lays out a runtime in the folder `home` of the application and registers it as an MSI does:
    /// `key` ends with the version.
    void AddMsi(std::wstring_view key, std::wstring_view home, HKEY hive = HKEY_LOCAL_MACHINE,
                const wchar_t* jvm = L"\\hotspot\\MSI") {
        app.AddRuntime(home);
        AddKey(std::wstring(key) + jvm, hive).Set(kMsiHome, app.Path(home) + L'\\');
    }

    void AddRelease(std::wstring_view home, const std::string& version) {
        app.AddFile(std::wstring(home) + L"\\release",
                    "IMPLEMENTOR=\"Test\"\nJAVA_VERSION=\"" + version + "\"\n");
    }

    static std::string In(const std::string& home) { return home + "\\bin\\server\\jvm.dll"; }

  private:
    std::vector<std::unique_ptr<TemporaryKey>> keys_;
};

struct Layout {
    const wchar_t* key;
    const wchar_t* home;
    const wchar_t* version;  ///< the value that states it; null when the key's name does
};

std::ostream& operator<<(std::ostream& out, const Layout& layout) {
    return out << ToUtf8(layout.key);
}

class MakerKeys : public FurtherSources, public testing::WithParamInterface<Layout> {
  protected:
    void AddRuntimeOfMaker(HKEY hive) {
        app.AddRuntime(L"runtime");
        TemporaryKey& key = AddKey(GetParam().key, hive);
        key.Set(GetParam().home, app.Path(L"runtime"));
        if (GetParam().version != nullptr) key.Set(GetParam().version, L"17.0.9");
        settings.Runtime(L"Minimum Version", L"17").Runtime(L"Maximum Version", L"17");
    }
};

TEST_P(MakerKeys, AreSearchedForTheMachine) {
    AddRuntimeOfMaker(HKEY_LOCAL_MACHINE);
    EXPECT_EQ(Chosen(), In("runtime"));
    Name(L"user;folders");
    EXPECT_EQ(Chosen(), "nothing");
}

TEST_P(MakerKeys, AreSearchedForTheUser) {
    AddRuntimeOfMaker(HKEY_CURRENT_USER);
    EXPECT_EQ(Chosen(), "nothing");
    Name(L"vendors ; USER");
    EXPECT_EQ(Chosen(), In("runtime"));
}

INSTANTIATE_TEST_SUITE_P(
    Every, MakerKeys,
    testing::Values(Layout{L"Eclipse Adoptium\\JRE\\17.0.9.9\\hotspot\\MSI", kMsiHome, nullptr},
                    Layout{L"Eclipse Adoptium\\JDK\\17.0.9.9\\hotspot\\MSI", kMsiHome, nullptr},
                    Layout{L"Eclipse Foundation\\JDK\\17.0.1.12\\hotspot\\MSI", kMsiHome, nullptr},
                    Layout{L"AdoptOpenJDK\\JRE\\17.0.0.1\\openj9\\MSI", kMsiHome, nullptr},
                    Layout{L"Semeru\\JDK\\17.0.9.0\\openj9\\MSI", kMsiHome, nullptr},
                    Layout{L"Microsoft\\JDK\\17.0.9.8\\hotspot\\MSI", kMsiHome, nullptr},
                    Layout{L"Azul Systems\\Zulu\\zulu-17", kNamedHome, L"CurrentVersion"},
                    Layout{L"Azul Systems\\Zulu\\zulu-17-jre", kNamedHome, L"Version"},
                    Layout{L"BellSoft\\Liberica\\jdk-17", kNamedHome, L"Version"}));

TEST_F(FurtherSources, AreNotSearchedWithoutTheKey) {
    AddMsi(L"Eclipse Adoptium\\JDK\\17.0.9.9", L"runtime");
    settings.Remove(L"Java Runtime Environment", L"Further Sources");
    EXPECT_EQ(Chosen(), "nothing");
    Name(L"");
    EXPECT_EQ(Chosen(), "nothing");
    Name(L"vendor;maker");
    EXPECT_EQ(Chosen(), "nothing");
}

TEST_F(FurtherSources, FollowTheOthers) {
    AddMsi(L"Eclipse Adoptium\\JDK\\21.0.1.12", L"further");
    Add(kJreRoot, L"11", L"registered");
    EXPECT_EQ(Chosen(), In("registered"));
}

TEST_F(FurtherSources, MayBeNamedInAnAdditiveSection) {
    AddMsi(L"Eclipse Adoptium\\JDK\\17.0.9.9", L"runtime");
    settings.Remove(L"Java Runtime Environment", L"Further Sources");
    settings.Set(L"Java Runtime Environment+", L"Further Sources", L"vendors");
    EXPECT_EQ(Chosen(), In("runtime"));
}

TEST_F(FurtherSources, OfTwoMakersAreRankedTogether) {
    AddMsi(L"Eclipse Adoptium\\JDK\\17.0.9.9", L"adoptium");
    AddMsi(L"Microsoft\\JDK\\21.0.1.12", L"microsoft");
    AddMsi(L"Semeru\\JRE\\11.0.21.0", L"semeru", HKEY_LOCAL_MACHINE, L"\\openj9\\MSI");
    EXPECT_EQ(Chosen(), In("microsoft"));
    settings.Runtime(L"JVM Source", L"favor_JRE");
    EXPECT_EQ(Chosen(), In("semeru"));
    settings.Runtime(L"JVM Source", L"only_JDK").Runtime(L"Preferred versions", L"11;17");
    EXPECT_EQ(Chosen(), In("adoptium"));
    settings.Runtime(L"JVM Source", L"none");
    EXPECT_EQ(Chosen(), "nothing");
}

TEST_F(FurtherSources, AreSearchedInTheOrderWritten) {
    AddMsi(L"Eclipse Adoptium\\JDK\\21.0.1.12", L"machine");
    AddMsi(L"Eclipse Adoptium\\JDK\\17.0.9.9", L"user", HKEY_CURRENT_USER);
    Name(L"user;vendors");
    EXPECT_EQ(Chosen(), In("user"));
    Name(L"vendors;user");
    EXPECT_EQ(Chosen(), In("machine"));
}

TEST_F(FurtherSources, OutsideTheBoundsAreRejected) {
    AddMsi(L"Eclipse Adoptium\\JDK\\21.0.1.12", L"new");
    AddMsi(L"Microsoft\\JDK\\17.0.9.8", L"fitting");
    AddMsi(L"Semeru\\JDK\\11.0.21.0", L"old");
    settings.Runtime(L"Minimum Version", L"12").Runtime(L"Maximum Version", L"17");
    EXPECT_EQ(Chosen(), In("fitting"));
    settings.Runtime(L"Minimum Version", L"18").Runtime(L"Maximum Version", L"20");
    EXPECT_EQ(Chosen(), "nothing");
}

TEST_F(FurtherSources, MayBeADevelopmentKitOfJava8) {
    app.AddRuntime(L"jdk8\\jre");
    AddKey(L"Eclipse Adoptium\\JDK\\8.0.392.8\\hotspot\\MSI").Set(kMsiHome, app.Path(L"jdk8"));
    settings.Runtime(L"Minimum Version", L"1.8").Runtime(L"Maximum Version", L"8");
    EXPECT_EQ(Chosen(), In("jdk8\\jre"));
    // The key's name is compared as it is written.
    settings.Runtime(L"Maximum Version", L"1.8");
    EXPECT_EQ(Chosen(), "nothing");
    settings.Runtime(L"Minimum Version", L"9").Runtime(L"Maximum Version", L"any");
    EXPECT_EQ(Chosen(), "nothing");
}

TEST_F(FurtherSources, WhoseLibraryIsForAnotherMachineAreSkipped) {
    AddMsi(L"Eclipse Adoptium\\JDK\\25.0.1.8", L"arm64");
    AddMsi(L"Microsoft\\JDK\\24.0.1.8", L"narrow");
    AddMsi(L"Semeru\\JDK\\23.0.1.8", L"damaged");
    AddMsi(L"AdoptOpenJDK\\JDK\\11.0.1.8", L"good");
    const std::string narrow = As32Bit(ReadFileBytes(app.Path(L"good\\bin\\server\\jvm.dll")));
    std::string arm64 = narrow;
    // In place of the machine, behind the signature of the headers.
    const auto* const header = reinterpret_cast<const IMAGE_DOS_HEADER*>(narrow.data());
    const auto machine = static_cast<std::size_t>(header->e_lfanew) + sizeof(DWORD);
    arm64.replace(machine, 2, "\x64\xAA");
    app.AddFile(L"arm64\\bin\\server\\jvm.dll", arm64);
    app.AddFile(L"narrow\\bin\\server\\jvm.dll", narrow);
    app.AddFile(L"damaged\\bin\\server\\jvm.dll", "MZ");
    EXPECT_EQ(Chosen(), In("good"));
}

TEST_F(FurtherSources, WithUselessValuesAreSkippedSilently) {
    app.AddRuntime(L"runtime");
    const std::wstring home = app.Path(L"runtime");
    const auto add = [&](const wchar_t* version, DWORD type, const void* data, std::size_t size) {
        AddKey(L"Eclipse Adoptium\\JDK\\" + std::wstring(version) + L"\\hotspot\\MSI")
            .Set(kMsiHome, type, data, size);
    };
    const auto addText = [&](const wchar_t* version, const std::wstring& text) {
        add(version, REG_SZ, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
    };
    const DWORD number = 17;
    add(L"12", REG_DWORD, &number, sizeof number);
    add(L"13", REG_NONE, nullptr, 0);
    add(L"14", REG_SZ, home.c_str(), 1);
    addText(L"15", std::wstring(30000, L'x'));
    addText(L"16", L"Q:\\Java");
    addText(L"18", L"jre");
    addText(L"19", L"\\\\tarn-no-such-server\\share\\jdk");
    addText(L"20", std::wstring(1023, L'"'));
    addText(L"21", L"C:");
    addText(L"22", L"C:\\" + std::wstring(1020, L'y'));
    AddKey(L"Eclipse Adoptium\\JDK\\23\\hotspot");
    AddKey(L"Eclipse Adoptium\\JDK\\24");
    EXPECT_EQ(Chosen(), "nothing");
    // Without a terminator, of another type, in quotes.
    add(L"11", REG_BINARY, home.c_str(), home.size() * sizeof(wchar_t));
    EXPECT_EQ(Chosen(), In("runtime"));
    addText(L"11", L"\"" + home + L"\"");
    EXPECT_EQ(Chosen(), In("runtime"));
}

TEST_F(FurtherSources, InKeysWithoutPermissionAreSkipped) {
    TemporaryKey& root = AddKey(L"Semeru\\JDK");
    AddMsi(L"Semeru\\JDK\\23.0.1.8", L"semeru");
    EXPECT_EQ(Chosen(), In("semeru"));
    root.Lock();
    EXPECT_EQ(Chosen(), "nothing");
    app.AddRuntime(L"microsoft");
    TemporaryKey& runtime = AddKey(L"Microsoft\\JDK\\21.0.1.12\\hotspot\\MSI");
    runtime.Set(kMsiHome, app.Path(L"microsoft"));
    AddMsi(L"Microsoft\\JDK\\17.0.9.8", L"readable");
    EXPECT_EQ(Chosen(), In("microsoft"));
    runtime.Lock();
    EXPECT_EQ(Chosen(), In("readable"));
}

TEST_F(FurtherSources, MayStateTheirVersionInAValueOfAnyType) {
    app.AddRuntime(L"runtime");
    TemporaryKey& key = AddKey(L"Azul Systems\\Zulu\\zulu-17");
    key.Set(kNamedHome, app.Path(L"runtime"));
    settings.Runtime(L"Minimum Version", L"17").Runtime(L"Maximum Version", L"17");
    // Without a terminator.
    key.Set(L"CurrentVersion", REG_BINARY, L"17", 2 * sizeof(wchar_t));
    EXPECT_EQ(Chosen(), In("runtime"));
    // Half a character is ignored.
    key.Set(L"CurrentVersion", REG_SZ, L"17", 2 * sizeof(wchar_t) + 1);
    EXPECT_EQ(Chosen(), In("runtime"));
    const DWORD number = 17;
    key.Set(L"CurrentVersion", REG_DWORD, &number, sizeof number);
    EXPECT_EQ(Chosen(), "nothing");
    key.Set(L"CurrentVersion", REG_SZ, nullptr, 0);
    EXPECT_EQ(Chosen(), "nothing");
    AddRelease(L"runtime", "17.0.9");
    EXPECT_EQ(Chosen(), In("runtime"));
}

TEST_F(FurtherSources, WithAnUnknownVersionNeedOpenBounds) {
    AddMsi(L"Eclipse Adoptium\\JDK\\latest", L"runtime");
    EXPECT_EQ(Chosen(), In("runtime"));
    settings.Runtime(L"Minimum Version", L"1.1");
    EXPECT_EQ(Chosen(), "nothing");
    settings.Runtime(L"Minimum Version", L"any").Runtime(L"Maximum Version", L"60000");
    EXPECT_EQ(Chosen(), "nothing");
}

using JavaHome = FurtherSources;

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

using JavaInPath = FurtherSources;

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
class MakerFolders : public FurtherSources {
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

    /// Lays out a runtime in `home`. Returns the path of its library.
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

class RealFurtherRuntimes : public RealRuntimeFixture {
  protected:
    RealFurtherRuntimes() {
        settings.Runtime(L"Maximum Version", L"any").Runtime(L"Further Sources", L"vendors");
        adoptium_.Set(L"Path", RuntimeHome("21") + L'\\');
        microsoft_.Set(L"Path", RuntimeHome("11") + L'\\');
    }

    std::wstring Chosen() {
        EXPECT_EQ(Run(L"do:facts do:exit:9"), 9);
        const std::wstring chosen = Report().One("javaHome");
        return chosen.substr(chosen.rfind(L'\\') + 1);
    }

  private:
    RegisteredRuntimes none_;
    TemporaryKey adoptium_{HKEY_LOCAL_MACHINE,
                           L"SOFTWARE\\Eclipse Adoptium\\JDK\\21.0.8.9\\hotspot\\MSI"};
    TemporaryKey microsoft_{HKEY_LOCAL_MACHINE,
                            L"SOFTWARE\\Microsoft\\JDK\\11.0.13.8\\hotspot\\MSI"};
};

TEST_F(RealFurtherRuntimes, StartAsTheirMakersRegisterThem) {
    EXPECT_EQ(Chosen(), L"21");
    settings.Runtime(L"Maximum Version", L"17");
    EXPECT_EQ(Chosen(), L"11");
}

}  // namespace
}  // namespace tarn::test
