#include "base/files.h"

#include "base/handles.h"

namespace tarn {

bool FileExists(const std::wstring& path) {
    WIN32_FIND_DATAW found;
    return static_cast<bool>(UniqueFindHandle(FindFirstFileW(path.c_str(), &found)));
}

}  // namespace tarn
