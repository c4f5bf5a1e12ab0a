#include "runtime/choose_candidate.h"

#include <utility>

namespace tarn {

namespace {

/// Whether `later`, the right neighbour of `earlier`, must come before it.
bool ComesBefore(const RuntimeCandidate& later, const RuntimeCandidate& earlier,
                 const RuntimeSearchPolicy& policy) {
    switch (RankingRule(earlier, later, policy)) {
        case ChoiceReason::Favored:
            return later.favored;
        case ChoiceReason::Server:
            return later.server;
        case ChoiceReason::Version:
        case ChoiceReason::FoundEarlier:  // equal versions keep their order
            return CompareVersions(earlier.version, later.version) < 0;
        case ChoiceReason::PreferredVersion:
            break;
    }
    return false;
}

/// A stable bubble sort: docs/developer/compatibility.md.
std::vector<const RuntimeCandidate*> Rank(std::span<const RuntimeCandidate> candidates,
                                          const RuntimeSearchPolicy& policy) {
    std::vector<const RuntimeCandidate*> ranked(candidates.size());
    for (std::size_t at = 0; at < ranked.size(); ++at) ranked[at] = &candidates[at];
    for (std::size_t pass = 0; pass < ranked.size(); ++pass) {
        for (std::size_t second = 1; second < ranked.size(); ++second) {
            if (ComesBefore(*ranked[second], *ranked[second - 1], policy)) {
                std::swap(ranked[second], ranked[second - 1]);
            }
        }
    }
    return ranked;
}

}  // namespace

ChoiceReason RankingRule(const RuntimeCandidate& a, const RuntimeCandidate& b,
                         const RuntimeSearchPolicy& policy) {
    if (policy.sourceFavouring && a.favored != b.favored) return ChoiceReason::Favored;
    if (policy.jvmType == JvmType::FavorServer && a.server != b.server) return ChoiceReason::Server;
    if (CompareVersions(a.version, b.version) != 0) return ChoiceReason::Version;
    return ChoiceReason::FoundEarlier;
}

CandidateChoice ChooseCandidate(std::span<const RuntimeCandidate> candidates,
                                const RuntimeSearchPolicy& policy) {
    CandidateChoice choice{Rank(candidates, policy), nullptr, std::nullopt};
    if (choice.ranked.empty()) return choice;
    choice.candidate = choice.ranked.front();
    for (std::size_t index = 0; index < policy.preferredVersions.size(); ++index) {
        for (const RuntimeCandidate* candidate : choice.ranked) {
            if (!MatchesPreferred(policy.preferredVersions[index], candidate->version)) continue;
            choice.candidate = candidate;
            choice.preferred = index;
            return choice;
        }
    }
    return choice;
}

ChoiceReason ReasonAgainst(const RuntimeCandidate& other, const CandidateChoice& choice,
                           const RuntimeSearchPolicy& policy) {
    if (choice.preferred &&
        !MatchesPreferred(policy.preferredVersions[*choice.preferred], other.version)) {
        return ChoiceReason::PreferredVersion;
    }
    return RankingRule(*choice.candidate, other, policy);
}

}  // namespace tarn
