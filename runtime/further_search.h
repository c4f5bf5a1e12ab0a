#pragma once

#include "runtime/choose_candidate.h"
#include "runtime/further_sources.h"
#include "runtime/search_policy.h"
#include "runtime/search_report.h"

namespace tarn {

/// The largest number of runtimes that one further source examines.
inline constexpr int kMostFurtherRuntimes = 500;

/// Searches one further source for the runtime to use, `found`; returns false when the source has
/// no candidate. The source's candidates are ranked together, like those of the registry. What the
/// machine's registry and folders contain may be hostile: it can only lead to a runtime that is
/// rejected. Appends every runtime to `report` if `kWithReport`; `report` is not used otherwise.
template <bool kWithReport>
bool SearchFurther(const RuntimeSearchPolicy& policy, FurtherSource source, RuntimeCandidate& found,
                   SourceReport* report);

extern template bool SearchFurther<false>(const RuntimeSearchPolicy&, FurtherSource,
                                          RuntimeCandidate&, SourceReport*);
extern template bool SearchFurther<true>(const RuntimeSearchPolicy&, FurtherSource,
                                         RuntimeCandidate&, SourceReport*);

}  // namespace tarn
