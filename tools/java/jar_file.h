#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tools/common/whole_file.h"

namespace tarn::tools {

inline constexpr std::size_t kLargestJarEntry = 256U << 20;  // read whole into memory

/// The entries of a jar (any zip file, zip64 included, other data in front of it or behind it
/// allowed), read from bytes that outlive it.
class JarFile {
  public:
    /// `path` is for the messages. Throws Failure when the bytes are no zip file, are cut short or
    /// broken, or when an entry is encrypted, which Java cannot read.
    JarFile(std::span<const std::byte> content, std::filesystem::path path);
    ~JarFile();
    JarFile(const JarFile&) = delete;
    JarFile& operator=(const JarFile&) = delete;

    /// Names of all entries in the order of the directory, as their bytes stand there (UTF-8 for
    /// what Java's tools write); folders end in "/".
    const std::vector<std::string>& Names() const { return names_; }

    bool Has(std::string_view name) const { return positions_.count(name) != 0; }

    /// An entry's content, or nothing when there is none of that name (letter case counts). Throws
    /// Failure when it is broken, compressed in an unknown way or larger than `limit` bytes.
    std::optional<Bytes> Read(std::string_view name, std::size_t limit = kLargestJarEntry) const;

    const std::filesystem::path& Path() const { return path_; }

  private:
    struct Reader;
    struct Position {
        std::uint64_t inDirectory = 0;
        std::uint64_t number = 0;
    };

    void ReadDirectory();
    [[noreturn]] void Fail(std::string_view problem) const;

    std::filesystem::path path_;
    std::unique_ptr<Reader> reader_;
    std::vector<std::string> names_;
    std::map<std::string, Position, std::less<>> positions_;
};

/// The name of a class's entry: "a.b.C" and "a/b/C" are in "a/b/C.class".
std::string EntryOfClass(std::string_view className);

}  // namespace tarn::tools
