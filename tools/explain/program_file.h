#pragma once

#include <filesystem>

#include "base/handles.h"
#include "base/program.h"

namespace tarn::tools {

/// A launcher's executable, mapped for its resources. During its lifetime this process acts as that
/// program.
class ProgramFile {
  public:
    /// Throws Failure for a missing file and for anything but an executable.
    explicit ProgramFile(const std::filesystem::path& path);
    ~ProgramFile();

    ProgramFile(const ProgramFile&) = delete;
    ProgramFile& operator=(const ProgramFile&) = delete;

    /// The full path, as the running program would report it.
    const std::wstring& path() const { return program_.path; }

    /// Whether it has the launcher's string table.
    bool IsLauncher() const;

  private:
    UniqueLibrary image_;
    OtherProgram program_;
};

}  // namespace tarn::tools
