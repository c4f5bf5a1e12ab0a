#include "runtime/find_runtime.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/unit_support/folder_fixture.h"
#include "tests/unit_support/hive_fixture.h"

namespace tarn {
namespace {

using testing::ElementsAre;

/// Changes the current directory for its lifetime.
class CurrentFolder {
  public:
    explicit CurrentFolder(const std::wstring& folder) { std::filesystem::current_path(folder); }
    CurrentFolder(const CurrentFolder&) = delete;
    CurrentFolder& operator=(const CurrentFolder&) = delete;
    ~CurrentFolder() { std::filesystem::current_path(before_); }

  private:
    std::filesystem::path before_ = std::filesystem::current_path();
};

/// The test program's folder contains no runtime, so that source never yields one.
class FindRuntimeTest : public testing::Test {
  protected:
    FindRuntimeTest() {
        policy_.minimum = MinimumBound(L"any");
        policy_.maximum = MaximumBound(L"any");
    }

    /// Searches with and without a report, which must agree.
    bool Find(const std::wstring& pairProduct = L"") {
        RuntimeChoice quiet;
        const bool found = FindRuntime(policy_, pairProduct, quiet);
        report_ = {};
        choice_ = {};
        EXPECT_EQ(FindRuntime(policy_, pairProduct, choice_, report_), found);
        EXPECT_EQ(choice_.jvmLibraryPath, quiet.jvmLibraryPath);
        EXPECT_EQ(choice_.runtimeHome, quiet.runtimeHome);
        EXPECT_EQ(choice_.version.parts, quiet.version.parts);
        EXPECT_EQ(choice_.pairedLaunch, quiet.pairedLaunch);
        return found;
    }

    std::vector<SourceVerdict> Verdicts() const {
        std::vector<SourceVerdict> verdicts;
        for (const SourceReport& source : report_.sources) verdicts.push_back(source.verdict);
        return verdicts;
    }

    HiveFixture hive_;
    FolderFixture runtimes_;
    FolderFixture current_;
    CurrentFolder there_{current_.path()};
    RuntimeSearchPolicy policy_;
    RuntimeChoice choice_;
    SearchReport report_;
};

TEST_F(FindRuntimeTest, FailsWithoutAnyRuntime) {
    EXPECT_FALSE(Find());
    EXPECT_THAT(Verdicts(), ElementsAre(SourceVerdict::NotConfigured, SourceVerdict::NoJvmLibrary,
                                        SourceVerdict::NoCandidate, SourceVerdict::NoPairProduct));
    EXPECT_FALSE(Find(L"pair.exe"));
    EXPECT_THAT(Verdicts(), ElementsAre(SourceVerdict::NotConfigured, SourceVerdict::NoJvmLibrary,
                                        SourceVerdict::NoCandidate, SourceVerdict::NoCandidate));
    EXPECT_FALSE(choice_.pairedLaunch);
}

TEST_F(FindRuntimeTest, UsesTheConfiguredRuntimeWithoutAVersionCheck) {
    runtimes_.Write(L"x\\bin\\client\\jvm.dll");
    policy_.jrePath = runtimes_.path() + L"x";
    policy_.maximum = MaximumBound(L"");
    ASSERT_TRUE(Find());
    EXPECT_EQ(choice_.runtimeHome, runtimes_.path() + L"x\\");
    EXPECT_EQ(choice_.jvmLibraryPath, runtimes_.path() + L"x\\bin\\client\\jvm.dll");
    EXPECT_EQ(choice_.version.parts, RuntimeVersion{}.parts);
    EXPECT_THAT(Verdicts(), ElementsAre(SourceVerdict::Taken));
    policy_.jrePath += L'\\';
    ASSERT_TRUE(Find());
    EXPECT_EQ(choice_.runtimeHome, runtimes_.path() + L"x\\");
}

TEST_F(FindRuntimeTest, UsesTheConfiguredPathWithoutExpansion) {
    current_.Write(L"mine\\bin\\server\\jvm.dll");
    policy_.jrePath = L"mine";
    ASSERT_TRUE(Find());
    EXPECT_EQ(choice_.jvmLibraryPath, L"mine\\bin\\server\\jvm.dll");
    SetEnvironmentVariableW(L"TARN_HOME_FOR_TEST", L"mine");
    policy_.jrePath = L"%TARN_HOME_FOR_TEST%";
    EXPECT_FALSE(Find());
    SetEnvironmentVariableW(L"TARN_HOME_FOR_TEST", nullptr);
}

TEST_F(FindRuntimeTest, SkipsAConfiguredFolderWithoutAJvm) {
    current_.Write(L"bin\\client\\jvm.dll");
    policy_.jrePath = runtimes_.path();
    ASSERT_TRUE(Find());
    EXPECT_EQ(choice_.runtimeHome, L"");
    EXPECT_EQ(choice_.jvmLibraryPath, L"bin\\client\\jvm.dll");
    EXPECT_THAT(Verdicts(), ElementsAre(SourceVerdict::NoJvmLibrary, SourceVerdict::Taken));
}

TEST_F(FindRuntimeTest, SearchesTheCurrentDirectoryBeforeTheRegistry) {
    runtimes_.Write(L"17\\bin\\server\\jvm.dll");
    hive_.SetText(L"Software\\JavaSoft\\JDK\\17", runtimes_.path() + L"17");
    current_.Write(L"bin\\server\\jvm.dll");
    ASSERT_TRUE(Find());
    EXPECT_EQ(choice_.jvmLibraryPath, L"bin\\server\\jvm.dll");
    current_.Remove(L"bin\\server\\jvm.dll");
    ASSERT_TRUE(Find());
    EXPECT_EQ(choice_.jvmLibraryPath, runtimes_.path() + L"17\\bin\\server\\jvm.dll");
    EXPECT_EQ(choice_.runtimeHome, runtimes_.path() + L"17\\");
    EXPECT_EQ(choice_.version.parts[0], 17);
    EXPECT_FALSE(choice_.pairedLaunch);
    EXPECT_THAT(Verdicts(), ElementsAre(SourceVerdict::NotConfigured, SourceVerdict::NoJvmLibrary,
                                        SourceVerdict::Taken));
    EXPECT_EQ(report_.sources[2].home, choice_.runtimeHome);
}

TEST_F(FindRuntimeTest, LoadsTheFavouredServerJvmOfAnOlderRuntime) {
    runtimes_.Write(L"8\\bin\\server\\jvm.dll");
    runtimes_.Write(L"8\\bin\\client\\jvm.dll");
    hive_.SetText(L"Software\\JavaSoft\\Java Runtime Environment\\1.8", runtimes_.path() + L"8");
    policy_.jvmType = JvmType::FavorServer;
    ASSERT_TRUE(Find());
    EXPECT_EQ(choice_.jvmLibraryPath, runtimes_.path() + L"8\\bin\\server\\jvm.dll");
    EXPECT_FALSE(report_.sources.back().roots[3].subkeys[0].runtime.server);
}

TEST_F(FindRuntimeTest, ChecksTheMachineOfAConfiguredRuntimeOnly) {
    std::string headers(128, '\0');
    headers.replace(0, 2, "MZ");
    headers[60] = 64;
    headers.replace(64, 2, "PE");
    headers.replace(68, 2, "\x4C\x01");
    runtimes_.Write(L"old\\bin\\client\\jvm.dll", headers);
    hive_.SetText(L"Software\\JavaSoft\\JRE\\8", runtimes_.path() + L"old");
    ASSERT_TRUE(Find(L"pair.exe"));
    EXPECT_FALSE(choice_.pairedLaunch);
    policy_.jrePath = runtimes_.path() + L"old";
    ASSERT_TRUE(Find(L"pair.exe"));
    EXPECT_TRUE(choice_.pairedLaunch);
    ASSERT_TRUE(Find());
    EXPECT_FALSE(choice_.pairedLaunch);
}

TEST_F(FindRuntimeTest, InvalidHomesAreNoCandidates) {
    const wchar_t* root = L"Software\\JavaSoft\\JRE\\";
    const std::wstring homes[] = {
        L"Q:\\Java", L"\\\\nowhere\\share",    L"??",           L"con",         L".",
        L"\\",       std::wstring(1000, L'x'), L"%SystemRoot%", L"\"C:\\Java\""};
    int number = 0;
    for (const std::wstring& home : homes) hive_.SetText(root + std::to_wstring(++number), home);
    EXPECT_FALSE(Find());
    EXPECT_EQ(report_.sources[2].roots[1].subkeys.size(), std::size(homes));
    for (const SubkeyReport& subkey : report_.sources[2].roots[1].subkeys) {
        EXPECT_EQ(subkey.verdict, SubkeyVerdict::NoJvmLibrary);
    }
}

}  // namespace
}  // namespace tarn
