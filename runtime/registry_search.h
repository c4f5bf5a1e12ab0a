// The search over a registry that somebody shows it. What it may look at is a type that it is
// given, so that the very same search runs over the machine's registry and over a made-up one:
//
//     bool OpenRoot(const wchar_t* key)             goes to a root, before its first subkey
//     bool NextSubkey(std::wstring& name)           the next subkey's name; false behind the last
//     HomeValue ReadHome(const std::wstring& name)  the "JavaHome" of a subkey
//     bool FindJvm(const std::wstring& home, JvmType type, bool& server)   as SelectJvmLibrary
//
// Nothing is looked at twice, and nothing of a subkey once it is rejected.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "runtime/choose_candidate.h"
#include "runtime/registry_roots.h"
#include "runtime/search_report.h"

namespace tarn {

/// The "JavaHome" value of a subkey.
struct HomeValue {
    /// The subkey could be opened.
    bool keyOpened = false;
    /// Empty when the value is missing.
    std::wstring text;
};

/// Whether a runtime's version lies inside the bounds; the maximum is tested first.
std::optional<SubkeyVerdict> RejectVersion(const RuntimeVersion& version,
                                           const RuntimeSearchPolicy& policy);

/// Why the root is not to be searched, if it is not.
std::optional<RootVerdict> RejectRoot(const RegistryRoot& root, const RuntimeSearchPolicy& policy);

/// Chooses among the candidates. With a `report`, whose subkeys named the candidates in the same
/// order, tells there how each of them fared.
const RuntimeCandidate* ChooseAndReport(const std::vector<RuntimeCandidate>& candidates,
                                        const RuntimeSearchPolicy& policy, SourceReport* report);

/// Looks at one subkey and fills `candidate` as far as it gets. Returns why the subkey is no
/// candidate, if it is none.
template <typename Registry>
std::optional<SubkeyVerdict> ExamineSubkey(const std::wstring& name, const RegistryRoot& root,
                                           const RuntimeSearchPolicy& policy, Registry& registry,
                                           RuntimeCandidate& candidate) {
    // A name without digits is version 0.0.0.0 like any other.
    ParseVersion(name, 0, candidate.version);
    if (const auto rejected = RejectVersion(candidate.version, policy)) return rejected;
    const HomeValue value = registry.ReadHome(name);
    if (!value.keyOpened) return SubkeyVerdict::NotOpened;
    if (value.text.empty()) return SubkeyVerdict::NoJavaHome;
    candidate.home = HomeOf(root, value.text);
    if (!registry.FindJvm(candidate.home, JvmTypeIn(root, policy.jvmType), candidate.server)) {
        return SubkeyVerdict::NoJvmLibrary;
    }
    candidate.favored = IsFavored(root, policy);
    return std::nullopt;
}

/// Searches the roots that the policy asks for and returns the runtime to use, if there is one.
template <typename Registry>
std::optional<RuntimeCandidate> SearchRegistry(const RuntimeSearchPolicy& policy,
                                               Registry& registry, SourceReport* report) {
    std::vector<RuntimeCandidate> candidates;
    std::wstring name;
    for (const RegistryRoot& root : RegistryRoots()) {
        std::optional<RootVerdict> verdict = RejectRoot(root, policy);
        if (!verdict && !registry.OpenRoot(root.key)) verdict = RootVerdict::NotOpened;
        if (report != nullptr) {
            report->roots.push_back({&root, verdict.value_or(RootVerdict::Searched), {}});
        }
        while (!verdict && registry.NextSubkey(name)) {
            RuntimeCandidate candidate;
            const auto rejected = ExamineSubkey(name, root, policy, registry, candidate);
            if (report != nullptr) {
                // Until the choice is made, every candidate is one of those not chosen.
                const SubkeyVerdict soFar = rejected.value_or(SubkeyVerdict::RankedBelow);
                report->roots.back().subkeys.push_back({name, soFar, candidate});
            }
            if (!rejected) candidates.push_back(std::move(candidate));
        }
    }
    const RuntimeCandidate* const chosen = ChooseAndReport(candidates, policy, report);
    if (chosen == nullptr) return std::nullopt;
    return *chosen;
}

}  // namespace tarn
