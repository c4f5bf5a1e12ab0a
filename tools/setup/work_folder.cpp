#include "tools/setup/work_folder.h"

#include "tools/common/failure.h"
#include "tools/common/system.h"
#include "tools/common/whole_file.h"

namespace tarn::tools {
namespace fs = std::filesystem;

namespace {

constexpr int kTemporaryNames = 100;

fs::path CreateTemporaryFolder() {
    std::error_code error;
    const fs::path parent = fs::temp_directory_path(error);
    if (error) throw Failure("the folder for temporary files was not found");
    for (int attempt = 0; attempt < kTemporaryNames; ++attempt) {
        fs::path folder = TemporaryNameFor(parent / "tarn-setup");
        // Only a new folder is safe: another user may have created one of that name.
        if (!fs::create_directory(folder, error)) {
            if (error) break;
            continue;
        }
        fs::permissions(folder, fs::perms::owner_all, error);
        return folder;
    }
    throw Failure(parent, "no folder can be created (" + error.message() + ")");
}

}  // namespace

WorkFolder::WorkFolder(const fs::path& kept) : isNamed_(!kept.empty()) {
    if (!isNamed_) {
        path_ = CreateTemporaryFolder();
        return;
    }
    std::error_code error;
    const fs::path folder = fs::absolute(kept);
    if (IsLink(folder) || (fs::exists(folder, error) && !fs::is_empty(folder, error))) {
        throw Failure(kept, "exists already; specify a new folder with --script");
    }
    fs::create_directories(folder, error);
    if (error) throw Failure(kept, "cannot be created (" + error.message() + ")");
    path_ = folder;
}

WorkFolder::~WorkFolder() {
    std::error_code ignored;
    if (!isKept_) fs::remove_all(path_, ignored);
}

void CheckResultPath(const fs::path& result, bool replaces) {
    std::error_code error;
    const fs::path folder = fs::absolute(result).parent_path();
    if (!fs::is_directory(folder, error)) throw Failure(folder, "is not an existing folder");
    const fs::file_status status = fs::symlink_status(result, error);
    if (!fs::exists(status)) return;
    if (!fs::is_regular_file(status)) throw Failure(result, "exists and is not a file");
    if (!replaces) throw Failure(result, "exists already; use --replace to replace it");
}

void PlaceResult(const fs::path& made, const fs::path& result, bool replaces) {
    CheckResultPath(result, replaces);
    const fs::path beside = TemporaryNameFor(result);
    CopyToNewFile(made, beside, [](std::uintmax_t) {});
    std::error_code error;
    fs::rename(beside, result, error);
    if (!error) return;
    std::error_code ignored;
    fs::remove(beside, ignored);
    throw Failure(result, "cannot be created (" + error.message() + ")");
}

}  // namespace tarn::tools
