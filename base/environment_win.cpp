#include "base/environment.h"

#include "base/windows.h"

namespace tarn {

std::wstring ExpandEnvironment(const std::wstring& text) {
    // Most texts contain no variable.
    if (text.find(L'%') == std::wstring::npos) return text;
    std::wstring result(text.size() + 1, L'\0');
    for (;;) {
        const DWORD size = static_cast<DWORD>(result.size());
        // Includes the terminator.
        const DWORD needed = ExpandEnvironmentStringsW(text.c_str(), result.data(), size);
        if (needed == 0) return text;
        if (needed <= size) {
            result.resize(needed - 1);
            return result;
        }
        result.resize(needed);
    }
}

}  // namespace tarn
