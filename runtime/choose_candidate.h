#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "runtime/runtime_version.h"
#include "runtime/search_policy.h"

namespace tarn {

/// A runtime that a search admitted.
struct RuntimeCandidate {
    /// Parsed from the name of its registry key.
    RuntimeVersion version;
    /// Ends in a backslash.
    std::wstring home;
    /// The `jvm.dll` found in the home is a server JVM.
    bool server = false;
    /// Of the favoured kind and of the favoured provider.
    bool favored = false;
};

/// What puts one candidate before another.
enum class ChoiceReason {
    PreferredVersion,  ///< it has a preferred version, the other does not
    Favored,           ///< it is of the favoured kind and provider, the other is not
    Server,            ///< it has a server JVM, the other does not
    Version,           ///< it is newer
    FoundEarlier,      ///< no rule distinguishes them
};

/// Returns the rule that ranks two candidates, whichever of them it puts first. The preferred
/// versions are no ranking rule: they select from the ranked list.
ChoiceReason RankingRule(const RuntimeCandidate& a, const RuntimeCandidate& b,
                         const RuntimeSearchPolicy& policy);

/// A choice among candidates. Points to the candidates that it was made from.
struct CandidateChoice {
    /// All candidates, the best first; those that no rule distinguishes in the order in which they
    /// were found.
    std::vector<const RuntimeCandidate*> ranked;
    /// The candidate to use: the best one of the first preferred version that any candidate has,
    /// otherwise the best of all. Null when there are no candidates.
    const RuntimeCandidate* candidate = nullptr;
    /// Index of that preferred version in the policy; empty when none selected the candidate.
    std::optional<std::size_t> preferred;
};

/// Ranks the candidates and chooses the one to use. The candidates must outlive the result.
CandidateChoice ChooseCandidate(std::span<const RuntimeCandidate> candidates,
                                const RuntimeSearchPolicy& policy);

/// Returns what put the chosen candidate before `other`.
ChoiceReason ReasonAgainst(const RuntimeCandidate& other, const CandidateChoice& choice,
                           const RuntimeSearchPolicy& policy);

}  // namespace tarn
