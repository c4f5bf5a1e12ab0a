#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "tools/common/whole_file.h"
#include "tools/wrap/result_names.h"

namespace tarn::tools {

/// A file or folder below another folder.
struct TreeEntry {
    std::filesystem::path path;  // relative
    bool isFolder = false;
};

/// A folder that appears complete or not at all: it is filled under a unique temporary name beside
/// its final place. Every file is created exclusively, so nothing is overwritten and no link is
/// followed.
class OutputFolder {
  public:
    /// Throws Failure when `folder` is a link, or exists, unless it is empty, or `replaces` is set
    /// and it contains the file `mark`, as a folder created by this program does.
    OutputFolder(std::filesystem::path folder, bool replaces, const std::string& mark);

    /// Removes the files, and the parent folders that the constructor has created, unless `Finish`
    /// succeeded.
    ~OutputFolder();

    OutputFolder(const OutputFolder&) = delete;
    OutputFolder& operator=(const OutputFolder&) = delete;

    /// Writes a file below the folder; `target` is UTF-8 with "/", `origin` names it in messages.
    /// Throws Failure.
    void Write(const std::string& target, std::span<const std::byte> content,
               const std::string& origin);

    /// Called with the size in bytes of each part that was copied.
    using Copied = std::function<void(std::uintmax_t)>;

    /// Copies a file, or a folder with its contents, including empty folders. Links are followed.
    /// Throws Failure, also for anything but files and folders, and for a folder that contains this
    /// one: the copy would contain itself.
    void Copy(const std::filesystem::path& source, const std::string& target,
              const Copied& copied = {});

    /// The folder while it is being filled.
    const std::filesystem::path& Unfinished() const { return unfinished_; }

    /// Moves the folder to its final place, and removes the one that it replaces. Returns what
    /// remains of that one when it cannot be removed, or an empty path. Throws Failure.
    [[nodiscard]] std::filesystem::path Finish();

  private:
    void CheckReplaceable() const;
    void RemoveNewParents() const;
    void CheckIsOutside(const std::filesystem::path& source,
                        const std::vector<TreeEntry>& entries) const;
    void CopyFile(const std::filesystem::path& source, const std::string& target,
                  const Copied& copied);

    std::filesystem::path folder_;
    std::string mark_;
    bool replaces_;
    std::vector<std::filesystem::path> newParents_;  // the innermost first
    std::filesystem::path unfinished_;
    ResultNames names_;
    bool isFinished_ = false;
};

/// Everything below a folder, sorted by path; links are followed. Throws Failure when the folder
/// cannot be read or contains a link to a folder above it.
std::vector<TreeEntry> ListTree(const std::filesystem::path& folder);

/// Whether the name of a file or folder is in a folder, or in one below it.
bool IsBelow(const std::filesystem::path& path, const std::filesystem::path& folder);

/// The size in bytes of a file, or of all files below a folder. Throws Failure like `ListTree`.
std::uintmax_t TreeSize(const std::filesystem::path& path);

}  // namespace tarn::tools
