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
    if (folder_.has_parent_path()) CreateFolders(folder_.parent_path());
    unfinished_ = CreateTemporaryFolder(folder_);
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
    std::error_code ignored;
    if (!isFinished_) fs::remove_all(unfinished_, ignored);
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

void OutputFolder::Copy(const fs::path& source, const std::string& target, const Copied& copied) {
    std::error_code error;
    if (!fs::is_directory(source, error)) {
        CopyFile(source, target, copied);
        return;
    }
    names_.AddFolder(target, Utf8OfPath(source));
    CreateFolders(unfinished_ / PathOf(target));
    for (const TreeEntry& entry : ListTree(source)) {
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
