#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

namespace tarn::tools {

/// Throws Failure unless every component of a path (UTF-8 with "/") is a file name that Windows
/// accepts: no reserved characters or device names, no trailing dots or spaces, at most 255 UTF-16
/// units. `origin` is the file that the name comes from, for the message.
void CheckWindowsPath(const std::string& path, const std::string& origin);

/// The upper-case form by which Windows compares file names. Covers the Latin, Greek, Cyrillic and
/// Armenian letters of its table, which are those with a case in everyday use.
std::wstring ToUpperAsWindows(std::wstring_view name);

/// The names in the result, compared as Windows compares them.
class ResultNames {
  public:
    /// Adds a file with the path `target` (UTF-8 with "/") and the folders above it. `origin` names
    /// it in messages: the source file, or what it is. False when the same source file has been
    /// added at that path before. Throws Failure for a name that Windows does not accept, and for a
    /// path that is already used.
    bool AddFile(const std::string& target, const std::string& origin,
                 const std::filesystem::path& source = {});

    /// Adds a folder and the folders above it. A folder may be added several times, with the same
    /// spelling. Throws Failure like `AddFile`.
    void AddFolder(const std::string& target, const std::string& origin);

  private:
    struct Entry {
        std::string target;
        std::string origin;
        std::filesystem::path source;
        bool isFolder = false;
    };

    bool Add(Entry entry);

    std::map<std::wstring, Entry> entries_;  // by upper-case path
};

}  // namespace tarn::tools
