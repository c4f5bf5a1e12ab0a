// "Further Sources": the places of other makers, which are searched when all other sources of a
// runtime have failed. Here the registry keys of makers and the choice among their runtimes.

#include "tests/support/explained_launch.h"
#include "tests/support/further_sources_fixture.h"
#include "tests/support/real_runtime_fixture.h"

namespace tarn::test {
namespace {

using FurtherSources = FurtherSourcesFixture;

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

TEST_F(FurtherSources, KeepTheirVersionBesideTheLongestHomeThatIsRead) {
    app.AddRuntime(L"runtime");
    std::wstring home = app.Path(L"runtime");
    if (home.size() % 2 != 0) home += L'\\';
    while (home.size() < 1024) home += L"\\.";
    // Without a terminator and a backslash at its end, it fills the launcher's buffer.
    AddKey(L"Eclipse Adoptium\\JDK\\17.0.9.9\\hotspot\\MSI")
        .Set(kMsiHome, REG_BINARY, home.data(), home.size() * sizeof(wchar_t));
    settings.Runtime(L"Minimum Version", L"17").Runtime(L"Maximum Version", L"17");
    app.WriteSettings(settings);
    const auto report = ExplainLaunch(app, L"");
    ASSERT_TRUE(report);
    // The system may refuse a path of this length.
    const bool isFound =
        GetFileAttributesW((home + L"\\bin\\server\\jvm.dll").c_str()) != INVALID_FILE_ATTRIBUTES;
    EXPECT_EQ((*report)["outcome"]["kind"] != "asks-for-runtime", isFound);
}

TEST_F(FurtherSources, WithAnUnknownVersionNeedOpenBounds) {
    AddMsi(L"Eclipse Adoptium\\JDK\\latest", L"runtime");
    EXPECT_EQ(Chosen(), In("runtime"));
    settings.Runtime(L"Minimum Version", L"1.1");
    EXPECT_EQ(Chosen(), "nothing");
    settings.Runtime(L"Minimum Version", L"any").Runtime(L"Maximum Version", L"60000");
    EXPECT_EQ(Chosen(), "nothing");
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
