#include "jvm/native_paths.h"

#include "base/paths.h"
#include "base/text.h"
#include "runtime/jvm_library.h"

namespace tarn {

std::wstring LibraryPathValue(std::wstring_view setting, std::wstring_view launcherFolder,
                              std::wstring_view jvmLibraryPath) {
    // No separators: docs/developer/compatibility.md.
    return Concat(
        {setting, launcherFolder, L";.;%Path%", FolderOf(RuntimeBinOf(jvmLibraryPath)), L"lib"});
}

std::wstring ProcessPathValue(std::wstring_view setting, std::wstring_view jvmLibraryPath) {
    const bool separated = setting.empty() || setting.back() == L';';
    return Concat({setting, separated ? L"%Path%;" : L";%Path%;", RuntimeBinOf(jvmLibraryPath)});
}

}  // namespace tarn
