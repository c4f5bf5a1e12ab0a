#include "runtime/registry_search.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "runtime/fake_registry_fixture.h"

namespace tarn {
namespace {

using testing::ElementsAre;

const std::wstring kJdk = L"Software\\JavaSoft\\JDK";
const std::wstring kJre = L"Software\\JavaSoft\\JRE";
const std::wstring kOldJdk = L"Software\\JavaSoft\\Java Development Kit";
const std::wstring kOldJre = L"Software\\JavaSoft\\Java Runtime Environment";
const std::wstring kIbm = L"Software\\IBM\\Java2 Runtime Environment";

RuntimeSearchPolicy AnyVersion() {
    RuntimeSearchPolicy policy;
    policy.minimum = MinimumBound(L"any");
    policy.maximum = MaximumBound(L"any");
    return policy;
}

class RegistrySearchTest : public testing::Test {
  protected:
    /// Registers a runtime in a home of its own that contains the given JVMs.
    void Add(const std::wstring& root, const std::wstring& name,
             const std::vector<std::wstring>& folders, const std::wstring& below = L"") {
        const std::wstring home = L"C:\\" + name + L"\\";
        machine_.roots[root].push_back({name, home});
        machine_.AddRuntime(home + below, folders);
    }

    std::wstring Home() { return Home(policy_); }

    std::wstring Home(const RuntimeSearchPolicy& policy) {
        FakeRegistry registry(machine_);
        const auto found = SearchRegistry(policy, registry, nullptr);
        reads_ = registry.reads;
        return found ? found->home : L"nothing";
    }

    SourceReport Report() {
        FakeRegistry registry(machine_);
        SourceReport report;
        SearchRegistry(policy_, registry, &report);
        return report;
    }

    FakeMachine machine_;
    RuntimeSearchPolicy policy_ = AnyVersion();
    std::vector<std::wstring> reads_;
};

TEST_F(RegistrySearchTest, FindsNothingInAnEmptyRegistry) {
    EXPECT_EQ(Home(), L"nothing");
    machine_.roots[kJdk] = {};
    EXPECT_EQ(Home(), L"nothing");
}

TEST_F(RegistrySearchTest, EverySubkeyIsACandidate) {
    Add(kOldJre, L"1.8", {L"client"});
    Add(kOldJre, L"1.8.0_231", {L"client"});
    EXPECT_EQ(Home(), L"C:\\1.8.0_231\\");
}

TEST_F(RegistrySearchTest, TheBoundsAreInclusive) {
    Add(kJdk, L"11", {L"server"});
    Add(kJdk, L"17.0.1", {L"server"});
    Add(kJdk, L"21", {L"server"});
    policy_.maximum = MaximumBound(L"17");
    EXPECT_EQ(Home(), L"C:\\17.0.1\\");
    policy_.maximum = MaximumBound(L"17.0.0");
    EXPECT_EQ(Home(), L"C:\\11\\");
    policy_.minimum = MinimumBound(L"11");
    EXPECT_EQ(Home(), L"C:\\11\\");
    policy_.minimum = MinimumBound(L"11.0.0.1");
    EXPECT_EQ(Home(), L"nothing");
}

TEST_F(RegistrySearchTest, WithoutAMaximumOnlyNamesWithoutAVersionAreAdmitted) {
    Add(kJdk, L"17", {L"server"});
    policy_.maximum = MaximumBound(L"");
    EXPECT_EQ(Home(), L"nothing");
    Add(kJdk, L"current", {L"server"});
    EXPECT_EQ(Home(), L"C:\\current\\");
}

TEST_F(RegistrySearchTest, ANameWithoutDigitsIsOlderThanAnyMinimum) {
    Add(kJdk, L"current", {L"server"});
    EXPECT_EQ(Home(), L"C:\\current\\");
    policy_.minimum = MinimumBound(L"0.0.0.1");
    EXPECT_EQ(Home(), L"nothing");
}

TEST_F(RegistrySearchTest, CompletesHomesWithABackslashAndTheFolderOfOlderKits) {
    machine_.roots[kOldJdk] = {{L"1.8", L"D:\\jdk"}};
    machine_.AddRuntime(L"D:\\jdk\\jre\\", {L"server"});
    EXPECT_EQ(Home(), L"D:\\jdk\\jre\\");
    machine_.roots[kOldJdk] = {{L"1.8", L"D:\\jdk\\"}};
    EXPECT_EQ(Home(), L"D:\\jdk\\jre\\");
    machine_.roots[kJdk] = {{L"9", L"D:\\jdk"}};
    EXPECT_EQ(Home(), L"D:\\jdk\\jre\\");
    machine_.AddRuntime(L"D:\\jdk\\", {L"server"});
    EXPECT_EQ(Home(), L"D:\\jdk\\");
}

TEST_F(RegistrySearchTest, FavouringJresChoosesAnOlderJre) {
    Add(kJdk, L"11", {L"server"});
    Add(kOldJre, L"1.8", {L"client"});
    EXPECT_EQ(Home(), L"C:\\11\\");
    ApplyJvmSource(L"favor_JRE", policy_);
    EXPECT_EQ(Home(), L"C:\\1.8\\");
    ApplyJvmSource(L"only_JDK", policy_);
    EXPECT_EQ(Home(), L"C:\\11\\");
    EXPECT_THAT(reads_,
                ElementsAre(L"root " + kJdk, L"key 11", L"home C:\\11\\", L"root " + kOldJdk));
    ApplyJvmSource(L"Favor_JRE", policy_);
    EXPECT_EQ(Home(), L"nothing");
    EXPECT_THAT(reads_, ElementsAre());
}

TEST_F(RegistrySearchTest, AProviderSearchesItsRootsOnly) {
    Add(kJdk, L"17", {L"server"});
    Add(kIbm, L"1.6", {L"classic"});
    ApplyVmProvider(L"Ibm", policy_);
    EXPECT_EQ(Home(), L"C:\\1.6\\");
    EXPECT_THAT(reads_, ElementsAre(L"root " + kIbm, L"key 1.6", L"home C:\\1.6\\"));
}

TEST_F(RegistrySearchTest, AFavouredServerJvmPrecedesANewerClientJvm) {
    Add(kJdk, L"11", {L"client"});
    Add(kJdk, L"1.8", {L"client", L"server"});
    EXPECT_EQ(Home(), L"C:\\11\\");
    policy_.jvmType = JvmType::FavorServer;
    EXPECT_EQ(Home(), L"C:\\1.8\\");
}

TEST_F(RegistrySearchTest, AnOlderRuntimeWithBothJvmsIsNoServerRuntime) {
    Add(kJre, L"1.5", {L"server"});
    Add(kOldJre, L"1.8", {L"client", L"server"});
    Add(kOldJre, L"1.4", {L"server"});
    policy_.jvmType = JvmType::FavorServer;
    EXPECT_EQ(Home(), L"C:\\1.5\\");
}

TEST_F(RegistrySearchTest, OlderRuntimesNeedARequiredServerJvmToo) {
    Add(kOldJre, L"1.8", {L"client"});
    Add(kOldJre, L"1.4", {L"client", L"server"});
    policy_.jvmType = JvmType::Server;
    EXPECT_EQ(Home(), L"C:\\1.4\\");
}

TEST_F(RegistrySearchTest, ReadsNothingOfARejectedSubkey) {
    machine_.roots[kJdk] = {{L"8", L"C:\\8"},
                            {L"22", L"C:\\22"},
                            {L"17", L"", true},
                            {L"18", L"C:\\18", false},
                            {L"19", L"C:\\19"}};
    policy_.minimum = MinimumBound(L"11");
    policy_.maximum = MaximumBound(L"21");
    ApplyJvmSource(L"only_JDK", policy_);
    EXPECT_EQ(Home(), L"nothing");
    EXPECT_THAT(reads_, ElementsAre(L"root " + kJdk, L"key 17", L"key 18", L"key 19",
                                    L"home C:\\19\\", L"root " + kOldJdk));
}

TEST_F(RegistrySearchTest, ReportsWhyEachSubkeyIsRejected) {
    machine_.roots[kJdk] = {{L"8", L"C:\\8"},
                            {L"22", L"C:\\22"},
                            {L"17", L"", true},
                            {L"18", L"C:\\18", false},
                            {L"19", L"C:\\19"}};
    Add(kJdk, L"20", {L"server"});
    policy_.minimum = MinimumBound(L"11");
    policy_.maximum = MaximumBound(L"21");
    ApplyJvmSource(L"only_JDK", policy_);
    const SourceReport report = Report();

    std::vector<RootVerdict> roots;
    for (const RootReport& root : report.roots) roots.push_back(root.verdict);
    EXPECT_THAT(roots, ElementsAre(RootVerdict::Searched, RootVerdict::KindNotWanted,
                                   RootVerdict::NotOpened, RootVerdict::KindNotWanted,
                                   RootVerdict::KindNotWanted, RootVerdict::ProviderNotAllowed,
                                   RootVerdict::KindNotWanted));
    std::vector<std::pair<std::wstring, SubkeyVerdict>> subkeys;
    for (const SubkeyReport& subkey : report.roots[0].subkeys) {
        subkeys.emplace_back(subkey.name, subkey.verdict);
    }
    using Entry = std::pair<std::wstring, SubkeyVerdict>;
    EXPECT_THAT(subkeys, ElementsAre(Entry(L"8", SubkeyVerdict::BelowMinimum),
                                     Entry(L"22", SubkeyVerdict::AboveMaximum),
                                     Entry(L"17", SubkeyVerdict::NoJavaHome),
                                     Entry(L"18", SubkeyVerdict::NotOpened),
                                     Entry(L"19", SubkeyVerdict::NoJvmLibrary),
                                     Entry(L"20", SubkeyVerdict::Chosen)));
    EXPECT_EQ(report.roots[0].subkeys[0].runtime.version.parts[0], 8);
    EXPECT_EQ(report.roots[0].subkeys[4].runtime.home, L"C:\\19\\");
    EXPECT_TRUE(report.roots[0].subkeys[5].runtime.server);
}

TEST_F(RegistrySearchTest, ReportsTheRuleThatPutTheChosenCandidateFirst) {
    Add(kJdk, L"11", {L"client"});
    Add(kJdk, L"10", {L"client"});
    Add(kJdk, L"9", {L"server"});
    Add(kJre, L"11.0", {L"client"});
    Add(kIbm, L"21", {L"server"});
    ApplyVmProvider(L"favor_sun", policy_);
    SourceReport report = Report();
    const auto& jdks = report.roots[0].subkeys;
    EXPECT_EQ(jdks[0].verdict, SubkeyVerdict::Chosen);
    EXPECT_EQ(jdks[0].rank, 0U);
    EXPECT_EQ(jdks[1].verdict, SubkeyVerdict::RankedBelow);
    EXPECT_EQ(jdks[1].reason, ChoiceReason::Version);
    EXPECT_EQ(jdks[1].rank, 2U);
    EXPECT_EQ(report.roots[1].subkeys[0].reason, ChoiceReason::FoundEarlier);
    EXPECT_EQ(report.roots[1].subkeys[0].rank, 1U);
    EXPECT_EQ(report.roots[6].subkeys[0].reason, ChoiceReason::Favored);
    EXPECT_EQ(report.roots[6].subkeys[0].rank, 4U);
    EXPECT_EQ(report.preferred, std::nullopt);

    policy_.jvmType = JvmType::FavorServer;
    report = Report();
    EXPECT_EQ(report.roots[0].subkeys[2].verdict, SubkeyVerdict::Chosen);
    EXPECT_EQ(report.roots[0].subkeys[0].reason, ChoiceReason::Server);

    policy_.preferredVersions = {L"8", L"10"};
    report = Report();
    EXPECT_EQ(report.preferred, 1U);
    EXPECT_EQ(report.roots[0].subkeys[1].verdict, SubkeyVerdict::Chosen);
    EXPECT_EQ(report.roots[0].subkeys[2].reason, ChoiceReason::PreferredVersion);
    EXPECT_EQ(report.roots[6].subkeys[0].reason, ChoiceReason::PreferredVersion);
}

}  // namespace
}  // namespace tarn
