#include "settings/layered_settings.h"

#include "base/text.h"

namespace tarn {

std::wstring AppendValue(std::wstring_view below, std::wstring_view appended) {
    std::wstring result(below);
    if (appended.empty()) return result;
    if (appended.front() != L' ') result += L' ';
    result += appended;
    return result;
}

int CountPossibleMatches(std::wstring_view names, std::wstring_view name) {
    constexpr int kUnknown = 2;
    int matches = names.empty() ? kUnknown : 0;
    for (std::size_t at = 0; at < names.size() && matches < kUnknown; ++at) {
        // Null characters separate the names. Other characters outside ASCII may compare equal to
        // ASCII characters in the profile functions.
        const wchar_t c = names[at];
        if (c != L'\0' && (c < L' ' || c > L'~')) return kUnknown;
        if (EqualsIgnoringCase(names.substr(at, name.size()), name)) ++matches;
    }
    return matches;
}

}  // namespace tarn
