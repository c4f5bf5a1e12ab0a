#include "jvm/output_folders.h"

#include "base/paths.h"
#include "base/text.h"
#include "base/windows.h"
#include "jvm/folder_levels.h"

namespace tarn {
namespace {

/// Whether the folder is there in the end. A folder whose parent may only be read answers "access
/// denied" although it exists.
bool CreateFolder(const std::wstring& folder) {
    return CreateDirectoryW(folder.c_str(), nullptr) || GetLastError() == ERROR_ALREADY_EXISTS ||
           GetFileAttributesW(folder.c_str()) != INVALID_FILE_ATTRIBUTES;
}

}  // namespace

void CreateOutputFolders(const std::wstring& fileName) {
    if (!IsAbsolutePath(fileName) || FileExists(fileName)) return;
    for (std::size_t length = 0;;) {
        length = NextFolderLevel(fileName, length);
        if (length == std::wstring::npos) return;
        // Below a folder that is missing there is nothing to create.
        if (!CreateFolder(fileName.substr(0, length))) return;
    }
}

}  // namespace tarn
