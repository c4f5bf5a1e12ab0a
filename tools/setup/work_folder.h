#pragma once

#include <filesystem>

namespace tarn::tools {

/// The folder in which a setup program is made: the script and its inputs.
class WorkFolder {
  public:
    /// Creates `kept` for --script, or a temporary folder that only the user can read if that is
    /// empty. Throws Failure when `kept` exists and is not an empty folder.
    explicit WorkFolder(const std::filesystem::path& kept);

    /// Removes a temporary folder, and a kept one unless `Keep` was called.
    ~WorkFolder();

    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;

    /// Absolute.
    const std::filesystem::path& Path() const { return path_; }

    /// Leaves the folder of --script.
    void Keep() { isKept_ = isNamed_; }

  private:
    std::filesystem::path path_;
    bool isNamed_ = false;
    bool isKept_ = false;
};

/// Throws Failure when `result` exists, unless it is a file and `replaces` is set, or when its
/// folder does not exist.
void CheckResultPath(const std::filesystem::path& result, bool replaces);

/// Copies a finished file to its place in one step. Throws Failure like `CheckResultPath`.
void PlaceResult(const std::filesystem::path& made, const std::filesystem::path& result,
                 bool replaces);

}  // namespace tarn::tools
