#pragma once

#include <filesystem>

#include "base/handles.h"
#include "base/program.h"

namespace tarn::tools {

/// A launcher's executable, opened for its resources. While it lives, this process acts for it.
class ProgramFile {
  public:
    /// Throws Failure for a file that is missing or no executable.
    explicit ProgramFile(const std::filesystem::path& path);
    ~ProgramFile();

    ProgramFile(const ProgramFile&) = delete;
    ProgramFile& operator=(const ProgramFile&) = delete;

    /// The path as the program would have it when it runs.
    const std::wstring& path() const { return program_.path; }

    /// Whether it has the launcher's texts.
    bool IsLauncher() const;

  private:
    UniqueLibrary image_;
    OtherProgram program_;
};

}  // namespace tarn::tools
