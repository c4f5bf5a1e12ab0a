#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "runtime/runtime_version.h"
#include "runtime/search_policy.h"

namespace tarn {

/// A registered runtime that would do.
struct RuntimeCandidate {
    /// From the name of its registry key.
    RuntimeVersion version;
    /// Ends in a backslash.
    std::wstring home;
    /// The library found in it is a server JVM.
    bool server = false;
    /// Of the favoured kind and of the favoured provider.
    bool favored = false;
};

/// The candidates from the best to the worst; those that nothing tells apart stay in the order in
/// which they were found.
std::vector<const RuntimeCandidate*> RankCandidates(std::span<const RuntimeCandidate> candidates,
                                                    const RuntimeSearchPolicy& policy);

/// The candidate to use, and which of the preferred versions asked for it.
struct Pick {
    /// Null when there is no candidate.
    const RuntimeCandidate* candidate = nullptr;
    /// Index in the policy's preferred versions; empty when the best candidate was taken.
    std::optional<std::size_t> preferred;
};

/// Picks from ranked candidates: the best one of the first preferred version that any of them has,
/// else the best of all.
Pick PickRanked(std::span<const RuntimeCandidate* const> ranked, const RuntimeSearchPolicy& policy);

/// The candidate to use, null when there is none: ranks and picks.
const RuntimeCandidate* ChooseCandidate(std::span<const RuntimeCandidate> candidates,
                                        const RuntimeSearchPolicy& policy);

/// What puts one candidate before another.
enum class ChoiceReason {
    PreferredVersion,  ///< it is of a preferred version, the other is not
    Favored,           ///< it is of the favoured kind and provider, the other is not
    Server,            ///< it has a server JVM, the other has not
    Version,           ///< it is newer
    FoundEarlier,      ///< nothing else tells them apart
};

/// What ranks two candidates, whichever of them it puts first.
ChoiceReason RankingRule(const RuntimeCandidate& a, const RuntimeCandidate& b,
                         const RuntimeSearchPolicy& policy);

}  // namespace tarn
