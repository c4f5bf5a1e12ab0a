#include "base/paths.h"

namespace tarn {

bool IsAbsolutePath(std::wstring_view path) {
    return (path.size() >= 2 && path[1] == L':') || path.substr(0, 2) == L"\\\\";
}

std::wstring_view FolderOf(std::wstring_view path) {
    return path.substr(0, path.rfind(L'\\') + 1);
}

}  // namespace tarn
