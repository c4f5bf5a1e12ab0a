#include "tools/wrap/output_folder.h"

#include <algorithm>

#include "tools/common/failure.h"
#include "tools/common/text_encoding.h"

namespace tarn::tools {
namespace {

namespace fs = std::filesystem;

fs::path Beside(const fs::path& folder, const char* ending) {
    fs::path beside = folder;
    beside += ending;
    return beside;
}

void CreateFolder(const fs::path& folder) {
    std::error_code error;
    fs::create_directories(folder, error);
    if (error) throw Failure(folder, "cannot be made (" + error.message() + ")");
}

}  // namespace

OutputFolder::OutputFolder(fs::path folder, bool replaces, const std::string& mark) {
    // "name/" and "name" are the same folder.
    folder_ = folder.has_filename() ? std::move(folder) : folder.parent_path();
    std::error_code error;
    if (fs::exists(folder_, error)) {
        const bool isEmpty = fs::is_directory(folder_, error) && fs::is_empty(folder_, error);
        const bool isOurs = fs::is_regular_file(folder_ / PathOf(mark), error);
        if (!isEmpty && !replaces) {
            throw Failure(folder_, "exists already; choose another --out, or give --replace");
        }
        if (!isEmpty && !isOurs) {
            throw Failure(folder_, "has no " + mark + " in it, so it is not replaced");
        }
    }
    unfinished_ = Beside(folder_, ".unfinished");
    // One of an earlier time, that was stopped.
    fs::remove_all(unfinished_, error);
    CreateFolder(unfinished_);
}

OutputFolder::~OutputFolder() {
    std::error_code ignored;
    if (!isFinished_) fs::remove_all(unfinished_, ignored);
}

void OutputFolder::Write(const std::string& target, std::span<const std::byte> content) const {
    const fs::path file = unfinished_ / PathOf(target);
    CreateFolder(file.parent_path());
    WriteWholeFile(file, content);
}

void OutputFolder::Copy(const fs::path& source, const std::string& target) const {
    std::error_code error;
    if (!fs::is_directory(source, error)) {
        Write(target, ReadWholeFile(source));
        return;
    }
    CreateFolder(unfinished_ / PathOf(target));
    for (const fs::path& file : FilesBelow(source)) {
        Write(target + "/" + Utf8OfPath(fs::path(file.generic_string())),
              ReadWholeFile(source / file));
    }
}

void OutputFolder::Finish() {
    std::error_code error;
    const fs::path old = Beside(folder_, ".old");
    const bool wasThere = fs::exists(folder_, error);
    if (wasThere) {
        fs::remove_all(old, error);
        fs::rename(folder_, old, error);
        if (error) throw Failure(folder_, "cannot be replaced (" + error.message() + ")");
    }
    fs::rename(unfinished_, folder_, error);
    if (error) {
        std::error_code ignored;
        if (wasThere) fs::rename(old, folder_, ignored);
        throw Failure(folder_, "cannot be made (" + error.message() + ")");
    }
    isFinished_ = true;
    if (wasThere) fs::remove_all(old, error);
}

std::vector<fs::path> FilesBelow(const fs::path& folder) {
    std::vector<fs::path> files;
    try {
        const auto options = fs::directory_options::follow_directory_symlink;
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder, options)) {
            if (!entry.is_directory()) files.push_back(entry.path().lexically_relative(folder));
        }
    } catch (const fs::filesystem_error& error) {
        throw Failure(folder, "cannot be read (" + error.code().message() + ")");
    }
    std::sort(files.begin(), files.end());
    return files;
}

}  // namespace tarn::tools
