#include "tools/common/child_process.h"

#include <algorithm>
#include <cstdlib>
#include <system_error>

namespace tarn::tools {
namespace {

namespace fs = std::filesystem;

#ifdef _WIN32
constexpr wchar_t kSeparator = L';';

fs::path::string_type FoldersOfPath() {
    const wchar_t* const value = _wgetenv(L"PATH");
    return value == nullptr ? L"" : value;
}

bool IsProgram(const fs::path& file) {
    std::error_code error;
    return fs::is_regular_file(file, error);
}
#else
constexpr char kSeparator = ':';

fs::path::string_type FoldersOfPath() {
    const char* const value = std::getenv("PATH");
    return value == nullptr ? "" : value;
}

bool IsProgram(const fs::path& file) {
    constexpr fs::perms kAnyone =
        fs::perms::owner_exec | fs::perms::group_exec | fs::perms::others_exec;
    std::error_code error;
    const fs::file_status status = fs::status(file, error);
    return fs::is_regular_file(status) && (status.permissions() & kAnyone) != fs::perms::none;
}
#endif

}  // namespace

fs::path FindProgram(const fs::path& name) {
    fs::path file = name;
#ifdef _WIN32
    if (!file.has_extension()) file += ".exe";
#endif
    if (file.has_parent_path()) return file;
    const fs::path::string_type folders = FoldersOfPath();
    for (std::size_t at = 0; at < folders.size();) {
        const std::size_t end = std::min(folders.find(kSeparator, at), folders.size());
        const fs::path folder = folders.substr(at, end - at);
        if (folder.is_absolute() && IsProgram(folder / file)) return folder / file;
        at = end + 1;
    }
    return {};
}

}  // namespace tarn::tools
