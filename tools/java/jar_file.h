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

/// Entries are read into memory as a whole.
inline constexpr std::size_t kLargestJarEntry = 256U << 20;

/// The entries of a jar: any zip file, including zip64, with other data before or after it. Reads
/// from bytes that the caller keeps alive.
class JarFile {
  public:
    /// `path` appears in messages. Throws Failure when the bytes are not a zip file, are truncated
    /// or corrupt, or when an entry is encrypted, which Java cannot read.
    JarFile(std::span<const std::byte> content, std::filesystem::path path);
    ~JarFile();
    JarFile(const JarFile&) = delete;
    JarFile& operator=(const JarFile&) = delete;

    /// The names of all entries in directory order, as stored (Java's tools write UTF-8); folders
    /// end in "/".
    const std::vector<std::string>& Names() const { return names_; }

    bool Has(std::string_view name) const { return positions_.count(name) != 0; }

    /// The content of the entry with that name (case-sensitive), or nothing. Throws Failure when it
    /// is corrupt, compressed by an unknown method or larger than `limit` bytes.
    std::optional<Bytes> Read(std::string_view name, std::size_t limit = kLargestJarEntry) const;

    /// The first `size` bytes of an entry, or all of a shorter one, without a check of the rest;
    /// nothing when there is no such entry. Throws Failure when they cannot be decompressed.
    std::optional<Bytes> ReadStart(std::string_view name, std::size_t size) const;

    const std::filesystem::path& Path() const { return path_; }

  private:
    struct Reader;
    struct Position {
        std::uint64_t inDirectory = 0;
        std::uint64_t number = 0;
    };

    void ReadDirectory();
    void Open(const Position& position, std::string_view name, std::uint64_t limit) const;
    [[noreturn]] void Fail(std::string_view problem) const;
    [[noreturn]] void FailEntry(std::string_view name) const;

    std::filesystem::path path_;
    std::unique_ptr<Reader> reader_;
    std::vector<std::string> names_;
    std::map<std::string, Position, std::less<>> positions_;
};

/// The entry of a class: "a/b/C.class" for "a.b.C" and "a/b/C".
std::string EntryOfClass(std::string_view className);

}  // namespace tarn::tools
