// The registry search, parameterised on the registry reader so that the same code searches the
// machine's registry and a test's. A reader has these operations:
//
//     bool OpenRoot(const wchar_t* key)             opens a root and starts at its first subkey
//     bool NextSubkey(std::wstring& name)           the next subkey's name; false after the last
//     HomeValue ReadHome(const std::wstring& name)  the "JavaHome" value of a subkey
//     bool FindJvm(const std::wstring& home, JvmType type, bool& server)   as SelectJvmLibrary
//
// No operation is called twice for the same key, and none for a subkey that is already rejected.
#pragma once

#include <optional>
#include <string>
#include <type_traits>
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

/// Returns why the policy excludes the root; empty when the root is searched.
std::optional<RootVerdict> RejectRoot(const RegistryRoot& root, const RuntimeSearchPolicy& policy);

/// Returns which bound excludes the version; empty when it lies within both, which are inclusive.
/// The maximum is compared first.
std::optional<SubkeyVerdict> RejectVersion(const RuntimeVersion& version,
                                           const RuntimeSearchPolicy& policy);

/// Completes the report of the candidate `own`: sets its rank, and the verdict or the reason.
void ReportRank(const RuntimeCandidate* own, const CandidateChoice& choice,
                const RuntimeSearchPolicy& policy, SubkeyReport& report);

/// Completes a report whose subkeys with the verdict `RankedBelow` are the candidates, in the same
/// order: sets the rank of each, and the verdict or the reason.
void ReportChoice(const std::vector<RuntimeCandidate>& candidates, const CandidateChoice& choice,
                  const RuntimeSearchPolicy& policy, SourceReport& report);

/// Examines one subkey and fills `candidate` until a test fails. Returns the failed test; empty
/// when the subkey is a candidate.
template <typename Registry>
std::optional<SubkeyVerdict> ExamineSubkey(const std::wstring& name, const RegistryRoot& root,
                                           const RuntimeSearchPolicy& policy, Registry& registry,
                                           RuntimeCandidate& candidate) {
    // A name without digits is version 0.0.0.0: docs/developer/compatibility.md.
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

/// Searches the roots that the policy admits and returns the runtime to use; empty when there is no
/// candidate. Appends every root and subkey to `report`, a `SourceReport*`; with `nullptr` no code
/// for reports is generated.
template <typename Registry, typename Report>
std::optional<RuntimeCandidate> SearchRegistry(const RuntimeSearchPolicy& policy,
                                               Registry& registry, Report report) {
    constexpr bool kWithReport = !std::is_null_pointer_v<Report>;
    std::vector<RuntimeCandidate> candidates;
    std::wstring name;
    for (const RegistryRoot& root : RegistryRoots()) {
        std::optional<RootVerdict> verdict = RejectRoot(root, policy);
        if (!verdict && !registry.OpenRoot(root.key)) verdict = RootVerdict::NotOpened;
        if constexpr (kWithReport) {
            report->roots.push_back({&root, verdict.value_or(RootVerdict::Searched), {}});
        }
        while (!verdict && registry.NextSubkey(name)) {
            RuntimeCandidate& candidate = candidates.emplace_back();
            const auto rejected = ExamineSubkey(name, root, policy, registry, candidate);
            if constexpr (kWithReport) {
                // `ReportChoice` replaces the verdict of the chosen candidate.
                const SubkeyVerdict soFar = rejected.value_or(SubkeyVerdict::RankedBelow);
                report->roots.back().subkeys.push_back({name, soFar, candidate});
            }
            if (rejected) candidates.pop_back();
        }
    }
    const CandidateChoice choice = ChooseCandidate(candidates, policy);
    if constexpr (kWithReport) ReportChoice(candidates, choice, policy, *report);
    if (choice.candidate == nullptr) return std::nullopt;
    return *choice.candidate;
}

}  // namespace tarn
