// Compares the search with a model of its rules on thousands of random machines and policies.

#include <gtest/gtest.h>

#include <random>

#include "runtime/registry_search.h"
#include "runtime/registry_search_model_fixture.h"

namespace tarn {
namespace {

class RandomCase {
  public:
    explicit RandomCase(unsigned seed) : random_(seed) {}

    std::size_t Below(std::size_t limit) { return random_() % limit; }
    bool OneIn(std::size_t count) { return Below(count) == 0; }

    std::wstring OneOf(std::initializer_list<const wchar_t*> texts) {
        return texts.begin()[Below(texts.size())];
    }

    /// One of a few versions, so that equal versions and exact bounds are frequent.
    std::wstring Version() {
        return OneOf({L"1.4",       L"1.5.0_22",  L"1.6",      L"1.7.0_80", L"1.8",
                      L"1.8.0_100", L"1.8.0_231", L"9",        L"11.0.2",   L"11.0.15",
                      L"jdk-17+35", L"17",        L"17.0.9.1", L"21",       L"0",
                      L"current",   L"1.2.3.4.5", L"65535.1",  L"1.8.0",    L"11"});
    }

    std::wstring Bound() {
        return OneIn(2)   ? std::wstring(L"any")
               : OneIn(8) ? OneOf({L"", L"Any", L"none"})
                          : Version();
    }

    FakeMachine Machine() {
        FakeMachine machine;
        std::size_t homes = 0;
        for (const ModelRoot& root : kModelRoots) {
            if (OneIn(4)) continue;
            auto& subkeys = machine.roots[root.key];
            for (std::size_t count = Below(7); count > 0; --count) {
                const std::wstring name = Version();
                const bool taken =
                    std::any_of(subkeys.begin(), subkeys.end(),
                                [&](const FakeSubkey& subkey) { return subkey.name == name; });
                if (taken) continue;
                // Sometimes two keys have the same home.
                if (homes == 0 || !OneIn(6)) ++homes;
                const std::wstring home = L"C:\\Java\\" + std::to_wstring(homes) + L"\\";
                std::vector<std::wstring> folders;
                for (const wchar_t* folder :
                     {L"client", L"classic", L"hotspot", L"server", L"jrockit"}) {
                    if (OneIn(3)) folders.emplace_back(folder);
                }
                machine.AddRuntime(OneIn(6) ? home : home + root.below, folders);
                const bool cut = OneIn(2);
                std::wstring value = cut ? home.substr(0, home.size() - 1) : home;
                if (OneIn(10)) value.clear();
                subkeys.push_back({name, value, !OneIn(12)});
            }
        }
        return machine;
    }

    ModelPolicy Policy() {
        ModelPolicy policy;
        policy.minimum = Bound();
        policy.maximum = Bound();
        policy.type = OneOf({L"", L"server", L"favor_server"});
        policy.source =
            OneOf({L"", L"", L"favor_JRE", L"favor_JDK", L"only_JDK", L"only_JRE", L"Favor_JRE"});
        policy.provider =
            OneOf({L"", L"jrockit", L"ibm", L"favor_sun", L"favor_jrockit", L"favor_ibm", L"any"});
        for (std::size_t count = OneIn(2) ? 0 : Below(4); count > 0; --count) {
            policy.preferred.push_back(OneIn(8) ? std::wstring() : Version());
        }
        return policy;
    }

  private:
    std::mt19937 random_;
};

RuntimeSearchPolicy Real(const ModelPolicy& model) {
    RuntimeSearchPolicy policy;
    policy.minimum = MinimumBound(model.minimum);
    policy.maximum = MaximumBound(model.maximum);
    policy.jvmType = JvmTypeOf(model.type);
    ApplyJvmSource(model.source, policy);
    ApplyVmProvider(model.provider, policy);
    policy.preferredVersions = model.preferred;
    return policy;
}

/// The report contains every root, and the choice once.
void ExpectReportContains(const SourceReport& report,
                          const std::optional<RuntimeCandidate>& chosen) {
    std::size_t chosenCount = 0;
    for (const RootReport& root : report.roots) {
        for (const SubkeyReport& subkey : root.subkeys) {
            if (subkey.verdict != SubkeyVerdict::Chosen) continue;
            ++chosenCount;
            ASSERT_EQ(subkey.runtime.home, chosen->home);
            ASSERT_EQ(subkey.runtime.version.parts, chosen->version.parts);
        }
    }
    ASSERT_EQ(chosenCount, chosen ? 1U : 0U);
    ASSERT_EQ(report.roots.size(), RegistryRoots().size());
}

TEST(RegistrySearchRandomTest, AgreesWithTheModelWithAndWithoutAReport) {
    constexpr unsigned kRounds = 3000;
    unsigned found = 0;
    for (unsigned seed = 0; seed < kRounds; ++seed) {
        SCOPED_TRACE(seed);
        RandomCase random(seed);
        const FakeMachine machine = random.Machine();
        const ModelPolicy policy = random.Policy();
        const ModelOutcome expected = RunModel(machine, policy);

        FakeRegistry registry(machine);
        const auto chosen = SearchRegistry(Real(policy), registry, nullptr);
        ASSERT_EQ(chosen ? chosen->home : L"nothing", expected.home);
        // The same reads in the same order: none twice, none after a rejection.
        ASSERT_EQ(registry.reads, expected.reads);

        FakeRegistry reportedRegistry(machine);
        SourceReport report;
        const auto reported = SearchRegistry(Real(policy), reportedRegistry, &report);
        ASSERT_EQ(reported ? reported->home : L"nothing", expected.home);
        ASSERT_EQ(reportedRegistry.reads, expected.reads);
        ASSERT_NO_FATAL_FAILURE(ExpectReportContains(report, chosen));
        if (chosen) ++found;
    }
    // Both outcomes are frequent enough to be tested.
    EXPECT_GT(found, kRounds / 4);
    EXPECT_LT(found, kRounds);
}

}  // namespace
}  // namespace tarn
