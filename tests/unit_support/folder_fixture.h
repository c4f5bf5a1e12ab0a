// For unit tests only: an empty folder of the test's own, which the destructor removes.
#pragma once

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "base/windows.h"

namespace tarn {

class FolderFixture {
  public:
    FolderFixture() {
        static int made = 0;
        const std::wstring name =
            L"tarn-" + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(++made);
        path_ = std::filesystem::temp_directory_path() / name;
        std::filesystem::remove_all(path_);
        std::filesystem::create_directories(path_);
    }
    FolderFixture(const FolderFixture&) = delete;
    FolderFixture& operator=(const FolderFixture&) = delete;
    ~FolderFixture() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    /// With a trailing backslash.
    std::wstring path() const { return path_.wstring() + L"\\"; }

    /// Writes a file below the folder and creates its folders. Returns its full path.
    std::wstring Write(std::wstring_view name, std::string_view bytes = {}) const {
        const std::filesystem::path file = path_ / name;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary).write(bytes.data(), std::ssize(bytes));
        return path() + std::wstring(name);
    }

    void Remove(std::wstring_view name) const { std::filesystem::remove(path_ / name); }

  private:
    std::filesystem::path path_;
};

}  // namespace tarn
