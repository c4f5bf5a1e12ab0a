#include "base/handles.h"
#include "base/paths.h"
#include "base/program.h"

namespace tarn {

bool FileExists(const std::wstring& path) {
    WIN32_FIND_DATAW found;
    return static_cast<bool>(UniqueFindHandle(FindFirstFileW(path.c_str(), &found)));
}

std::optional<std::wstring> ModulePath() {
    if (const OtherProgram* const other = OverridingProgram()) {
        if (other->path.size() < MAX_PATH) return other->path;
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return std::nullopt;
    }
    wchar_t path[MAX_PATH];  // a fixed limit: docs/developer/compatibility.md
    const DWORD length = GetModuleFileNameW(nullptr, path, MAX_PATH);
    if (length == 0) return std::nullopt;
    if (length >= MAX_PATH) {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return std::nullopt;
    }
    return std::wstring(path, length);
}

std::optional<std::wstring> ModuleFolder() {
    const std::optional<std::wstring> path = ModulePath();
    if (!path) return std::nullopt;
    return std::wstring(FolderOf(*path));
}

}  // namespace tarn
