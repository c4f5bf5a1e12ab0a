#include "runtime/registry_search.h"

#include <algorithm>

namespace tarn {

namespace {

ChoiceReason ReasonAgainst(const RuntimeCandidate& other, const Pick& pick,
                           const RuntimeSearchPolicy& policy) {
    if (pick.preferred &&
        !MatchesPreferred(policy.preferredVersions[*pick.preferred], other.version)) {
        return ChoiceReason::PreferredVersion;
    }
    return RankingRule(*pick.candidate, other, policy);
}

}  // namespace

std::optional<SubkeyVerdict> RejectVersion(const RuntimeVersion& version,
                                           const RuntimeSearchPolicy& policy) {
    if (CompareVersions(version, policy.maximum) > 0) return SubkeyVerdict::AboveMaximum;
    if (CompareVersions(version, policy.minimum) < 0) return SubkeyVerdict::BelowMinimum;
    return std::nullopt;
}

std::optional<RootVerdict> RejectRoot(const RegistryRoot& root, const RuntimeSearchPolicy& policy) {
    if (!IsKindSearched(root, policy)) return RootVerdict::KindNotWanted;
    if (!IsProviderSearched(root, policy)) return RootVerdict::ProviderNotAllowed;
    return std::nullopt;
}

const RuntimeCandidate* ChooseAndReport(const std::vector<RuntimeCandidate>& candidates,
                                        const RuntimeSearchPolicy& policy, SourceReport* report) {
    const std::vector<const RuntimeCandidate*> ranked = RankCandidates(candidates, policy);
    const Pick pick = PickRanked(ranked, policy);
    if (report == nullptr) return pick.candidate;

    report->preferred = pick.preferred;
    auto candidate = candidates.begin();
    for (RootReport& root : report->roots) {
        for (SubkeyReport& subkey : root.subkeys) {
            if (subkey.verdict != SubkeyVerdict::RankedBelow) continue;
            const RuntimeCandidate* const own = &*candidate++;
            subkey.rank = static_cast<std::size_t>(std::find(ranked.begin(), ranked.end(), own) -
                                                   ranked.begin());
            if (own == pick.candidate) {
                subkey.verdict = SubkeyVerdict::Chosen;
            } else {
                subkey.reason = ReasonAgainst(*own, pick, policy);
            }
        }
    }
    return pick.candidate;
}

}  // namespace tarn
