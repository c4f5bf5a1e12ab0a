// The search against a second opinion: a model of the same rules that is written for nothing but
// being read, and thousands of made-up machines and policies on which the two must agree.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <sstream>

#include "runtime/made_up_registry.h"
#include "runtime/registry_search.h"

namespace tarn {
namespace {

// ---- The model. It shares no code with the search.

using ModelVersion = std::array<long long, 4>;

/// Versions of the made-up machines have numbers of at most four digits.
ModelVersion ReadVersion(const std::wstring& text, long long fill) {
    std::wstring spaced;
    for (const wchar_t c : text) spaced += c >= L'0' && c <= L'9' ? c : L' ';
    std::wistringstream numbers(spaced);
    ModelVersion version{};
    long long number = 0;
    std::size_t count = 0;
    while (numbers >> number) {
        if (count < 4) version[count] = number;
        ++count;
    }
    for (std::size_t part = count; count != 0 && part < 4; ++part) version[part] = fill;
    return version;
}

struct ModelPolicy {
    std::wstring minimum, maximum, type, source, provider;
    std::vector<std::wstring> preferred;

    bool Wants(bool jdk) const {
        if (source == L"") return true;
        if (jdk) return source == L"favor_JDK" || source == L"only_JDK";
        return source == L"favor_JRE" || source == L"only_JRE";
    }
    bool TakesUnwanted() const { return source == L"" || source.starts_with(L"favor_J"); }
    bool Allows(const std::wstring& name) const {
        if (provider == L"") return name == L"sun";
        if (provider == L"any" || provider.starts_with(L"favor_")) return true;
        return provider == name;
    }
    bool Favors(const std::wstring& name) const {
        if (provider == L"") return name == L"sun";
        return provider == name || provider == L"favor_" + name;
    }
    /// Every text with digits, or the word, bounds; any other one bounds at zero.
    ModelVersion Minimum() const { return ReadVersion(minimum, 0); }
    ModelVersion Maximum() const {
        if (maximum == L"any") return {65535, 65535, 65535, 65535};
        return ReadVersion(maximum, 65535);
    }
};

struct ModelRoot {
    std::wstring key;
    bool jdk;
    std::wstring provider;
    std::wstring below;
    bool noFavour;
};

const std::vector<ModelRoot> kModelRoots = {
    {L"Software\\JavaSoft\\JDK", true, L"sun", L"", false},
    {L"Software\\JavaSoft\\JRE", false, L"sun", L"", false},
    {L"Software\\JavaSoft\\Java Development Kit", true, L"sun", L"jre\\", false},
    {L"Software\\JavaSoft\\Java Runtime Environment", false, L"sun", L"", true},
    {L"Software\\JRockit\\Java Runtime Environment", false, L"jrockit", L"", false},
    {L"Software\\JRockit\\Java Development Kit", true, L"jrockit", L"jre\\", false},
    {L"Software\\IBM\\Java2 Runtime Environment", false, L"ibm", L"", false},
};

struct ModelCandidate {
    ModelVersion version;
    std::wstring home;
    bool server;
    bool favored;
};

/// "server", "client" ... : the folder of the library that is taken, empty when none is.
std::wstring ModelLibrary(const MadeUpMachine& machine, const std::wstring& home,
                          const std::wstring& type) {
    const auto has = [&](const std::wstring& folder) {
        return machine.libraries.contains(home + L"bin\\" + folder + L"\\jvm.dll");
    };
    if (type == L"server") return has(L"server") ? L"server" : L"";
    if (type == L"favor_server" && has(L"server")) return L"server";
    if (has(L"client")) return L"client";
    if (has(L"classic")) return L"classic";
    if (has(L"hotspot")) return L"hotspot";
    if (has(L"server")) return L"server";
    if (has(L"jrockit")) return L"jrockit";
    return L"";
}

struct ModelOutcome {
    std::wstring home = L"nothing";
    std::vector<std::wstring> lookUps;
};

bool ModelMatches(const ModelVersion& preferred, const ModelVersion& candidate) {
    const ModelVersion zero{};
    for (std::size_t part = 0; part < 4; ++part) {
        // Nothing but zeros from here on: the rest may be anything.
        if (std::equal(preferred.begin() + static_cast<std::ptrdiff_t>(part), preferred.end(),
                       zero.begin())) {
            return true;
        }
        if (preferred[part] != candidate[part]) return false;
    }
    return true;
}

ModelOutcome AskModel(const MadeUpMachine& machine, const ModelPolicy& policy) {
    ModelOutcome outcome;
    std::vector<ModelCandidate> candidates;
    for (const ModelRoot& root : kModelRoots) {
        if (!policy.TakesUnwanted() && !policy.Wants(root.jdk)) continue;
        if (!policy.Allows(root.provider)) continue;
        outcome.lookUps.push_back(L"root " + root.key);
        if (!machine.roots.contains(root.key)) continue;
        for (const MadeUpSubkey& subkey : machine.roots.at(root.key)) {
            const ModelVersion version = ReadVersion(subkey.name, 0);
            if (version > policy.Maximum() || version < policy.Minimum()) continue;
            outcome.lookUps.push_back(L"key " + subkey.name);
            if (!subkey.opens || subkey.javaHome.empty()) continue;
            std::wstring home = subkey.javaHome;
            if (home.back() != L'\\') home += L'\\';
            home += root.below;
            outcome.lookUps.push_back(L"home " + home);
            const bool plain = root.noFavour && policy.type == L"favor_server";
            const std::wstring library = ModelLibrary(machine, home, plain ? L"" : policy.type);
            if (library.empty()) continue;
            candidates.push_back({version, home, library == L"server",
                                  policy.Wants(root.jdk) && policy.Favors(root.provider)});
        }
    }
    // The best of those that are left, again and again: the first one that no other one beats.
    std::vector<ModelCandidate> ranked;
    const auto beats = [&](const ModelCandidate& a, const ModelCandidate& b) {
        if (policy.TakesUnwanted() && a.favored != b.favored) return a.favored;
        if (policy.type == L"favor_server" && a.server != b.server) return a.server;
        return a.version > b.version;
    };
    while (!candidates.empty()) {
        std::size_t best = 0;
        for (std::size_t other = 1; other < candidates.size(); ++other) {
            if (beats(candidates[other], candidates[best])) best = other;
        }
        ranked.push_back(candidates[best]);
        candidates.erase(candidates.begin() + static_cast<std::ptrdiff_t>(best));
    }
    if (ranked.empty()) return outcome;
    outcome.home = ranked.front().home;
    for (const std::wstring& text : policy.preferred) {
        for (const ModelCandidate& candidate : ranked) {
            if (!ModelMatches(ReadVersion(text, 0), candidate.version)) continue;
            outcome.home = candidate.home;
            return outcome;
        }
    }
    return outcome;
}

// ---- The made-up machines.

class Maker {
  public:
    explicit Maker(unsigned seed) : random_(seed) {}

    std::size_t Below(std::size_t limit) { return random_() % limit; }
    bool OneIn(std::size_t count) { return Below(count) == 0; }

    std::wstring OneOf(std::initializer_list<const wchar_t*> texts) {
        return texts.begin()[Below(texts.size())];
    }

    /// From a small stock, so that equal versions and met bounds are common.
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

    MadeUpMachine Machine() {
        MadeUpMachine machine;
        std::size_t homes = 0;
        for (const ModelRoot& root : kModelRoots) {
            if (OneIn(4)) continue;
            auto& subkeys = machine.roots[root.key];
            for (std::size_t count = Below(7); count > 0; --count) {
                const std::wstring name = Version();
                const bool taken =
                    std::any_of(subkeys.begin(), subkeys.end(),
                                [&](const MadeUpSubkey& subkey) { return subkey.name == name; });
                if (taken) continue;
                // Now and then two keys share a home.
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

/// The report names the choice once and tells of every root.
void ExpectReportTells(const SourceReport& report, const std::optional<RuntimeCandidate>& chosen) {
    std::size_t told = 0;
    for (const RootReport& root : report.roots) {
        for (const SubkeyReport& subkey : root.subkeys) {
            if (subkey.verdict != SubkeyVerdict::Chosen) continue;
            ++told;
            ASSERT_EQ(subkey.runtime.home, chosen->home);
            ASSERT_EQ(subkey.runtime.version.parts, chosen->version.parts);
        }
    }
    ASSERT_EQ(told, chosen ? 1U : 0U);
    ASSERT_EQ(report.roots.size(), RegistryRoots().size());
}

TEST(RegistrySearchModelTest, TheSearchAgreesWithTheModelAskedForReasonsOrNot) {
    constexpr unsigned kRounds = 3000;
    unsigned found = 0;
    for (unsigned seed = 0; seed < kRounds; ++seed) {
        SCOPED_TRACE(seed);
        Maker maker(seed);
        const MadeUpMachine machine = maker.Machine();
        const ModelPolicy policy = maker.Policy();
        const ModelOutcome expected = AskModel(machine, policy);

        MadeUpRegistry registry(machine);
        const auto chosen = SearchRegistry(Real(policy), registry, nullptr);
        ASSERT_EQ(chosen ? chosen->home : L"nothing", expected.home);
        // The same look-ups in the same order: nothing twice, nothing after a rejection.
        ASSERT_EQ(registry.lookUps, expected.lookUps);

        MadeUpRegistry asked(machine);
        SourceReport report;
        const auto reported = SearchRegistry(Real(policy), asked, &report);
        ASSERT_EQ(reported ? reported->home : L"nothing", expected.home);
        ASSERT_EQ(asked.lookUps, expected.lookUps);
        ASSERT_NO_FATAL_FAILURE(ExpectReportTells(report, chosen));
        if (chosen) ++found;
    }
    // Else the machines would test little but the way to nothing.
    EXPECT_GT(found, kRounds / 4);
    EXPECT_LT(found, kRounds);
}

}  // namespace
}  // namespace tarn
