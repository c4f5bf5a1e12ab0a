#include "runtime/version_phrase.h"

#include "resources/ids.h"

namespace tarn {

VersionPhrase ChooseVersionPhrase(const RuntimeVersion& minimum, const RuntimeVersion& maximum) {
    if (IsBlank(minimum) && IsBlank(maximum)) return {IDS_LATEST_VERSION, L"", L""};
    if (IsBlank(minimum)) return {IDS_MAXIMUM_VERSION, FormatVersion(maximum), L""};
    if (IsBlank(maximum)) return {IDS_MINIMUM_VERSION, FormatVersion(minimum), L""};
    if (CompareVersions(minimum, maximum) == 0) {
        return {IDS_EXACT_VERSION, FormatVersion(minimum), L""};
    }
    return {IDS_VERSION_RANGE, FormatVersion(minimum), FormatVersion(maximum)};
}

}  // namespace tarn
