#pragma once

#include <algorithm>
#include <array>
#include <sstream>
#include <string>
#include <vector>

#include "runtime/fake_registry_fixture.h"

// For unit tests only: a model of the registry search, written for readability. It shares no code
// with the search.

namespace tarn {

using ModelVersion = std::array<long long, 4>;

/// Sufficient for the versions of the random machines, whose numbers have four digits at most.
inline ModelVersion ReadVersion(const std::wstring& text, long long fill) {
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
    /// A text without digits other than "any" is a bound of zero.
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

inline const std::vector<ModelRoot> kModelRoots = {
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

/// Returns the folder of the selected library ("server", "client" ...); empty without one.
inline std::wstring ModelLibrary(const FakeMachine& machine, const std::wstring& home,
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
    std::vector<std::wstring> reads;
};

inline bool ModelMatches(const ModelVersion& preferred, const ModelVersion& candidate) {
    const ModelVersion zero{};
    for (std::size_t part = 0; part < 4; ++part) {
        // Only zeros follow, which match anything.
        if (std::equal(preferred.begin() + static_cast<std::ptrdiff_t>(part), preferred.end(),
                       zero.begin())) {
            return true;
        }
        if (preferred[part] != candidate[part]) return false;
    }
    return true;
}

/// Returns the chosen home and everything that the search reads, in order.
inline ModelOutcome RunModel(const FakeMachine& machine, const ModelPolicy& policy) {
    ModelOutcome outcome;
    std::vector<ModelCandidate> candidates;
    for (const ModelRoot& root : kModelRoots) {
        if (!policy.TakesUnwanted() && !policy.Wants(root.jdk)) continue;
        if (!policy.Allows(root.provider)) continue;
        outcome.reads.push_back(L"root " + root.key);
        if (!machine.roots.contains(root.key)) continue;
        for (const FakeSubkey& subkey : machine.roots.at(root.key)) {
            const ModelVersion version = ReadVersion(subkey.name, 0);
            if (version > policy.Maximum() || version < policy.Minimum()) continue;
            outcome.reads.push_back(L"key " + subkey.name);
            if (!subkey.opens || subkey.javaHome.empty()) continue;
            std::wstring home = subkey.javaHome;
            if (home.back() != L'\\') home += L'\\';
            home += root.below;
            outcome.reads.push_back(L"home " + home);
            const bool plain = root.noFavour && policy.type == L"favor_server";
            const std::wstring library = ModelLibrary(machine, home, plain ? L"" : policy.type);
            if (library.empty()) continue;
            candidates.push_back({version, home, library == L"server",
                                  policy.Wants(root.jdk) && policy.Favors(root.provider)});
        }
    }
    // Repeatedly selects the first of the remaining candidates that no other one beats.
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

}  // namespace tarn
