#include "runtime/registry_search.h"

#include <algorithm>

namespace tarn {

std::optional<RootVerdict> RejectRoot(const RegistryRoot& root, const RuntimeSearchPolicy& policy) {
    if (!IsKindSearched(root, policy)) return RootVerdict::KindNotWanted;
    if (!IsProviderSearched(root, policy)) return RootVerdict::ProviderNotAllowed;
    return std::nullopt;
}

std::optional<SubkeyVerdict> RejectVersion(const RuntimeVersion& version,
                                           const RuntimeSearchPolicy& policy) {
    if (CompareVersions(version, policy.maximum) > 0) return SubkeyVerdict::AboveMaximum;
    if (CompareVersions(version, policy.minimum) < 0) return SubkeyVerdict::BelowMinimum;
    return std::nullopt;
}

void ReportRank(const RuntimeCandidate* own, const CandidateChoice& choice,
                const RuntimeSearchPolicy& policy, SubkeyReport& report) {
    report.rank = static_cast<std::size_t>(
        std::find(choice.ranked.begin(), choice.ranked.end(), own) - choice.ranked.begin());
    if (own == choice.candidate) {
        report.verdict = SubkeyVerdict::Chosen;
    } else {
        report.reason = ReasonAgainst(*own, choice, policy);
    }
}

void ReportChoice(const std::vector<RuntimeCandidate>& candidates, const CandidateChoice& choice,
                  const RuntimeSearchPolicy& policy, SourceReport& report) {
    report.preferred = choice.preferred;
    auto candidate = candidates.begin();
    for (RootReport& root : report.roots) {
        for (SubkeyReport& subkey : root.subkeys) {
            if (subkey.verdict != SubkeyVerdict::RankedBelow) continue;
            ReportRank(&*candidate++, choice, policy, subkey);
        }
    }
}

}  // namespace tarn
