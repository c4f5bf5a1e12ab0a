#include "tools/wrap/output_folder.h"

#include <algorithm>

#include "tools/common/failure.h"
#include "tools/common/system.h"
#include "tools/common/text_encoding.h"

namespace tarn::tools {
namespace fs = std::filesystem;

namespace {

constexpr int kTemporaryNames = 100;

void CreateFolders(const fs::path& folder) {
    std::error_code error;
    fs::create_directories(folder, error);
    if (error) throw Failure(folder, "cannot be created (" + error.message() + ")");
}

// The folders from `folder` upwards that do not exist.
std::vector<fs::path> MissingFolders(fs::path folder) {
    std::error_code error;
    std::vector<fs::path> missing;
    while (!folder.empty() && !fs::exists(fs::symlink_status(folder, error))) {
        missing.push_back(folder);
        // A drive that does not exist is its own parent.
        folder = folder.has_relative_path() ? folder.parent_path() : fs::path();
    }
    return missing;
}

// Creates a new folder beside `folder`; never uses an existing one.
fs::path CreateTemporaryFolder(const fs::path& folder) {
    std::error_code error;
    for (int attempt = 0; attempt < kTemporaryNames; ++attempt) {
        fs::path temporary = TemporaryNameFor(folder);
        if (fs::create_directory(temporary, error)) return temporary;
        if (error) break;
    }
    throw Failure(folder, "cannot be created (" + error.message() + ")");
}

std::string GenericUtf8(const fs::path& path) {
    return Utf8OfPath(fs::path(path.generic_string()));
}

// Adds the entries of `folder` / `relative`. `above` are the canonical paths from the root of the
// tree down to this folder.
void ListFolder(const fs::path& folder, const fs::path& relative, std::vector<fs::path>& above,
                std::vector<TreeEntry>& entries) {
    fs::path canonical = fs::canonical(folder / relative);
    if (std::find(above.begin(), above.end(), canonical) != above.end()) {
        throw Failure(folder / relative, "is a link to a folder that contains it");
    }
    above.push_back(std::move(canonical));
    for (const fs::directory_entry& entry : fs::directory_iterator(folder / relative)) {
        const fs::path path = relative / entry.path().filename();
        entries.push_back({path, entry.is_directory()});
        if (entries.back().isFolder) ListFolder(folder, path, above, entries);
    }
    above.pop_back();
}

}  // namespace

OutputFolder::OutputFolder(fs::path folder, bool replaces, const std::string& mark)
    // "name/" and "name" are the same folder.
    : folder_(folder.has_filename() ? std::move(folder) : folder.parent_path()),
      mark_(mark),
      replaces_(replaces) {
    CheckReplaceable();
    newParents_ = MissingFolders(folder_.parent_path());
    try {
        if (folder_.has_parent_path()) CreateFolders(folder_.parent_path());
        unfinished_ = CreateTemporaryFolder(folder_);
    } catch (const Failure&) {
        RemoveNewParents();
        throw;
    }
}

void OutputFolder::CheckReplaceable() const {
    std::error_code error;
    if (IsLink(folder_)) throw Failure(folder_, "is a link; specify its target with --out");
    if (!fs::exists(folder_, error)) return;
    if (fs::is_directory(folder_, error) && fs::is_empty(folder_, error)) return;
    if (!replaces_) {
        throw Failure(folder_, "already exists; choose another --out, or use --replace");
    }
    if (!fs::is_regular_file(folder_ / PathOf(mark_), error)) {
        throw Failure(folder_, "is not replaced, because it does not contain " + mark_);
    }
}

OutputFolder::~OutputFolder() {
    if (isFinished_) return;
    std::error_code ignored;
    fs::remove_all(unfinished_, ignored);
    RemoveNewParents();
}

void OutputFolder::RemoveNewParents() const {
    std::error_code ignored;
    // Only an empty folder is removed.
    for (const fs::path& parent : newParents_) fs::remove(parent, ignored);
}

void OutputFolder::Write(const std::string& target, std::span<const std::byte> content,
                         const std::string& origin) {
    names_.AddFile(target, origin);
    const fs::path file = unfinished_ / PathOf(target);
    CreateFolders(file.parent_path());
    WriteNewFile(file, content);
}

void OutputFolder::CopyFile(const fs::path& source, const std::string& target,
                            const Copied& copied) {
    if (!names_.AddFile(target, Utf8OfPath(source), source)) return;
    const fs::path file = unfinished_ / PathOf(target);
    CreateFolders(file.parent_path());
    CopyToNewFile(source, file, [&](std::uintmax_t size) {
        if (copied) copied(size);
    });
}

void OutputFolder::CheckIsOutside(const fs::path& source,
                                  const std::vector<TreeEntry>& entries) const {
    const auto contains = [&](const fs::path& folder) {
        std::error_code error;
        return fs::equivalent(folder, unfinished_, error) || fs::equivalent(folder, folder_, error);
    };
    const bool isInside = contains(source) ||
                          std::any_of(entries.begin(), entries.end(), [&](const TreeEntry& entry) {
                              return entry.isFolder && contains(source / entry.path);
                          });
    if (!isInside) return;
    throw Failure(
        folder_, "is in " + Utf8OfPath(source) + ", which is copied into it; choose another --out");
}

void OutputFolder::Copy(const fs::path& source, const std::string& target, const Copied& copied) {
    std::error_code error;
    if (!fs::is_directory(source, error)) {
        CopyFile(source, target, copied);
        return;
    }
    const std::vector<TreeEntry> entries = ListTree(source);
    CheckIsOutside(source, entries);
    names_.AddFolder(target, Utf8OfPath(source));
    CreateFolders(unfinished_ / PathOf(target));
    for (const TreeEntry& entry : entries) {
        const std::string entryTarget = target + "/" + GenericUtf8(entry.path);
        if (entry.isFolder) {
            names_.AddFolder(entryTarget, Utf8OfPath(source / entry.path));
            CreateFolders(unfinished_ / PathOf(entryTarget));
        } else {
            CopyFile(source / entry.path, entryTarget, copied);
        }
    }
}

fs::path OutputFolder::Finish() {
    // Something may have appeared there in the meantime.
    CheckReplaceable();
    std::error_code error;
    const bool existed = fs::exists(folder_, error);
    fs::path old;
    if (existed) {
        // A rename would replace an empty folder, so the name is taken first.
        old = CreateTemporaryFolder(folder_);
        fs::rename(folder_, old / folder_.filename(), error);
        if (error) {
            std::error_code ignored;
            fs::remove(old, ignored);
            throw Failure(folder_, "cannot be replaced (" + error.message() + ")");
        }
    }
    fs::rename(unfinished_, folder_, error);
    if (error) {
        std::string problem = "cannot be created (" + error.message() + ")";
        if (existed) {
            fs::rename(old / folder_.filename(), folder_, error);
            if (error) problem += "; the previous folder is in " + Utf8OfPath(old);
            fs::remove(old, error);
        }
        throw Failure(folder_, problem);
    }
    isFinished_ = true;
    if (existed) fs::remove_all(old, error);
    return existed && error ? old : fs::path();
}

std::vector<TreeEntry> ListTree(const fs::path& folder) {
    std::vector<TreeEntry> entries;
    try {
        std::vector<fs::path> above;
        ListFolder(folder, {}, above, entries);
    } catch (const fs::filesystem_error& error) {
        throw Failure(folder, "cannot be read (" + error.code().message() + ")");
    }
    std::sort(entries.begin(), entries.end(),
              [](const TreeEntry& a, const TreeEntry& b) { return a.path < b.path; });
    return entries;
}

bool IsBelow(const fs::path& path, const fs::path& folder) {
    std::error_code error;
    const fs::path whole = fs::weakly_canonical(folder, error);
    const fs::path place = fs::weakly_canonical(fs::absolute(path, error).parent_path(), error);
    return std::mismatch(whole.begin(), whole.end(), place.begin(), place.end()).first ==
           whole.end();
}

std::uintmax_t TreeSize(const fs::path& path) {
    std::error_code error;
    std::uintmax_t whole = 0;
    const auto add = [&](const fs::path& file) {
        const std::uintmax_t size = fs::file_size(file, error);
        if (!error) whole += size;
    };
    if (!fs::is_directory(path, error)) {
        add(path);
        return whole;
    }
    for (const TreeEntry& entry : ListTree(path)) {
        if (!entry.isFolder) add(path / entry.path);
    }
    return whole;
}

}  // namespace tarn::tools
