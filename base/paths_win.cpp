#include "base/paths.h"

#include "base/program.h"
#include "base/text.h"
#include "base/windows.h"

namespace tarn {

std::optional<std::wstring> ModulePath() {
    if (const OtherProgram* const other = ProgramActedFor()) {
        if (other->path.size() < MAX_PATH) return other->path;
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return std::nullopt;
    }
    // The size is the limit itself, not a first guess.
    wchar_t path[MAX_PATH];
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
