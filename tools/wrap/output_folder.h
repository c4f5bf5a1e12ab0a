#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "tools/common/whole_file.h"

namespace tarn::tools {

/// A folder that appears when it is complete, or not at all: it is filled under another name beside
/// its place.
class OutputFolder {
  public:
    /// Throws Failure when something is at `folder` already, unless that is an empty folder, or
    /// `replaces` is set and the file `mark` lies in it, which tells it for one made earlier.
    OutputFolder(std::filesystem::path folder, bool replaces, const std::string& mark);

    /// Takes away what was written, unless it was finished.
    ~OutputFolder();
    OutputFolder(const OutputFolder&) = delete;
    OutputFolder& operator=(const OutputFolder&) = delete;

    /// Writes a file below the folder (`target` in UTF-8 with "/"). Throws Failure.
    void Write(const std::string& target, std::span<const std::byte> content) const;

    /// Copies a file, or a folder with all that is in it.
    void Copy(const std::filesystem::path& source, const std::string& target) const;

    /// Gives the folder its name.
    void Finish();

  private:
    std::filesystem::path folder_;
    std::filesystem::path unfinished_;
    bool isFinished_ = false;
};

/// All files below a folder, links followed, as paths relative to it, sorted.
std::vector<std::filesystem::path> FilesBelow(const std::filesystem::path& folder);

}  // namespace tarn::tools
