#include "tools/explain/runtime_facts.h"

#include "base/handles.h"
#include "runtime/jvm_library.h"
#include "tools/common/failure.h"
#include "tools/common/whole_file.h"

namespace tarn::tools {
namespace {

std::string VersionInFolder(std::wstring_view folder) {
    constexpr std::uintmax_t kLargest = 1 << 20;
    try {
        const Bytes file = ReadWholeFile(std::wstring(folder) + L"\\release", kLargest);
        return JavaVersionIn({reinterpret_cast<const char*>(file.data()), file.size()});
    } catch (const Failure&) {
        return {};
    }
}

}  // namespace

std::string ReleaseVersion(const std::wstring& jvmLibraryPath) {
    std::string version = VersionInFolder(RuntimeHomeOf(jvmLibraryPath));
    if (version.empty()) version = VersionInFolder(CutComponents(jvmLibraryPath, 4));
    return version;
}

std::string LibraryVersion(const std::wstring& jvmLibraryPath) {
    const UniqueLibrary library(
        LoadLibraryExW(jvmLibraryPath.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE));
    if (!library) return {};
    const HRSRC found =
        FindResourceW(library.get(), MAKEINTRESOURCEW(1), MAKEINTRESOURCEW(16));  // RT_VERSION
    if (found == nullptr) return {};
    const HGLOBAL data = LoadResource(library.get(), found);
    if (data == nullptr) return {};
    const auto* const bytes = static_cast<const std::byte*>(LockResource(data));
    return FileVersionIn({bytes, SizeofResource(library.get(), found)});
}

}  // namespace tarn::tools
