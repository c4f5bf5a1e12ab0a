#include "settings/ini_name_list.h"

#include "base/text.h"

namespace tarn {

int CountPossibleMatches(std::wstring_view names, std::wstring_view name) {
    constexpr int kUnknown = 2;
    int places = names.empty() ? kUnknown : 0;
    for (std::size_t at = 0; at < names.size() && places < kUnknown; ++at) {
        // Terminators stand between the names. What else is not plain ASCII may be the same to
        // Windows as something that is.
        const wchar_t c = names[at];
        if (c != L'\0' && (c < L' ' || c > L'~')) return kUnknown;
        if (EqualsIgnoringCase(names.substr(at, name.size()), name)) ++places;
    }
    return places;
}

}  // namespace tarn
