#include "jvm/native_paths.h"

#include "base/paths.h"
#include "runtime/jvm_library.h"

namespace tarn {

std::wstring LibraryPathValue(std::wstring_view setting, std::wstring_view launcherFolder,
                              std::wstring_view jvmLibraryPath) {
    // No separators: docs/developer/compatibility.md.
    std::wstring value(setting);
    value += launcherFolder;
    value += L";.;%Path%";
    value += FolderOf(RuntimeBinOf(jvmLibraryPath));
    value += L"lib";
    return value;
}

std::wstring ProcessPathValue(std::wstring_view setting, std::wstring_view jvmLibraryPath) {
    std::wstring value(setting);
    if (!value.empty() && value.back() != L';') value += L';';
    value += L"%Path%;";
    value += RuntimeBinOf(jvmLibraryPath);
    return value;
}

}  // namespace tarn
