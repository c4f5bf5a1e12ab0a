#include "runtime/choose_candidate.h"

#include <utility>

namespace tarn {

namespace {

/// Whether `later`, which stands right behind `earlier`, has to come before it.
bool ComesBefore(const RuntimeCandidate& later, const RuntimeCandidate& earlier,
                 const RuntimeSearchPolicy& policy) {
    switch (RankingRule(earlier, later, policy)) {
        case ChoiceReason::Favored:
            return later.favored;
        case ChoiceReason::Server:
            return later.server;
        case ChoiceReason::Version:
            return CompareVersions(earlier.version, later.version) < 0;
        case ChoiceReason::PreferredVersion:
        case ChoiceReason::FoundEarlier:
            break;
    }
    return false;
}

}  // namespace

ChoiceReason RankingRule(const RuntimeCandidate& a, const RuntimeCandidate& b,
                         const RuntimeSearchPolicy& policy) {
    if (policy.sourceFavouring && a.favored != b.favored) return ChoiceReason::Favored;
    if (policy.jvmType == JvmType::FavorServer && a.server != b.server) return ChoiceReason::Server;
    if (CompareVersions(a.version, b.version) != 0) return ChoiceReason::Version;
    return ChoiceReason::FoundEarlier;
}

std::vector<const RuntimeCandidate*> RankCandidates(std::span<const RuntimeCandidate> candidates,
                                                    const RuntimeSearchPolicy& policy) {
    std::vector<const RuntimeCandidate*> ranked;
    ranked.reserve(candidates.size());
    for (const RuntimeCandidate& candidate : candidates) ranked.push_back(&candidate);
    // Only neighbours change places, so candidates that nothing tells apart keep their order, and
    // as many passes as candidates bring the last one to the front.
    for (std::size_t pass = 0; pass < ranked.size(); ++pass) {
        for (std::size_t second = 1; second < ranked.size(); ++second) {
            if (ComesBefore(*ranked[second], *ranked[second - 1], policy)) {
                std::swap(ranked[second], ranked[second - 1]);
            }
        }
    }
    return ranked;
}

Pick PickRanked(std::span<const RuntimeCandidate* const> ranked,
                const RuntimeSearchPolicy& policy) {
    if (ranked.empty()) return {};
    for (std::size_t index = 0; index < policy.preferredVersions.size(); ++index) {
        RuntimeVersion preferred;
        // A text without digits is all zeros and so asks for any version.
        ParseVersion(policy.preferredVersions[index], 0, preferred);
        for (const RuntimeCandidate* candidate : ranked) {
            if (MatchesPreferred(preferred, candidate->version)) return {candidate, index};
        }
    }
    return {ranked.front(), std::nullopt};
}

const RuntimeCandidate* ChooseCandidate(std::span<const RuntimeCandidate> candidates,
                                        const RuntimeSearchPolicy& policy) {
    return PickRanked(RankCandidates(candidates, policy), policy).candidate;
}

}  // namespace tarn
