#include "base/text.h"
#include "jvm/native_paths.h"

namespace tarn {
namespace {

// The runtime's `bin` folder: the `jvm.dll` lies in a folder of its own below it.
std::wstring_view BinFolder(std::wstring_view jvmLibraryPath) {
    return CutAtLast(CutAtLast(jvmLibraryPath, L'\\'), L'\\');
}

}  // namespace

std::wstring LibraryPathValue(std::wstring_view setting, std::wstring_view launcherFolder,
                              std::wstring_view jvmLibraryPath) {
    std::wstring value(setting);
    value += launcherFolder;
    value += L";.;%Path%";
    value += FolderOf(BinFolder(jvmLibraryPath));
    value += L"lib";
    return value;
}

std::wstring ProcessPathValue(std::wstring_view setting, std::wstring_view jvmLibraryPath) {
    std::wstring value(setting);
    if (!value.empty() && value.back() != L';') value += L';';
    value += L"%Path%;";
    value += BinFolder(jvmLibraryPath);
    return value;
}

}  // namespace tarn
