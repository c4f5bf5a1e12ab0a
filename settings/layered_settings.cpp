#include "settings/layered_settings.h"

namespace tarn {

std::wstring AppendValue(std::wstring_view below, std::wstring_view appended) {
    std::wstring result(below);
    if (appended.empty()) return result;
    if (appended.front() != L' ') result += L' ';
    result += appended;
    return result;
}

}  // namespace tarn
