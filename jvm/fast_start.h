#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "jvm/jvm_options.h"

namespace tarn {

/// Whether the runtime with this file `release` can be told to write an archive of an application's
/// classes at the end of a run (class-data sharing): Java 21 and newer. Java 17 knows the option,
/// too, but does not start with it when its own archive is missing or cannot be used.
bool WritesArchives(std::string_view releaseFile);

/// Whether one of the JVM's options rules out that of "Fast Start": it is for another archive or
/// cache, or a JVM that is to write an archive ends at once with it, as with agents and patched
/// modules. The text can contain several options.
bool RulesOutArchive(const std::string& options);

/// A 64-bit hash of bytes that differs when one of them does, as far as chance goes. Not
/// cryptographic: whoever can replace the application's jars needs no collision.
class Fingerprint {
  public:
    /// Appends a piece of bytes or text.
    void Add(std::span<const std::byte> bytes);
    void Add(std::wstring_view text) { Add(std::as_bytes(std::span(text))); }

    std::uint64_t value() const { return value_; }

  private:
    std::uint64_t value_ = 0;
};

/// The part at the end of a zip file in which its end record is searched, in bytes: what follows
/// the record, a comment or an executable's signature, is shorter.
inline constexpr std::uint32_t kZipTailSize = 64 * 1024;

/// Returns the distance in bytes from the end of a zip file to its directory, which contains the
/// checksum of each entry; 0 when `tail`, the last bytes of the file, contains no end record or one
/// without a size of at most 1 GiB. The distance includes the two records that large files have
/// between the directory and the end record, so in others it reaches 76 bytes before the directory,
/// or before the start of the file.
std::uint32_t ZipDirectoryDistance(std::span<const std::byte> tail);

/// What the archive of a launch depends on.
struct FastStartInputs {
    std::wstring_view
        setting;  ///< "Fast Start", expanded: the prefix, then further jars, each after ";"
    std::wstring_view program;
    std::wstring_view jvmLibraryPath;
    std::wstring_view classPath;       ///< expanded
    const std::wstring& vmParameters;  ///< as written
    LaunchKind kind;
};

/// Appends the JVM option that reads the archive of the application's classes, or writes it at the
/// end of the run when there is none. The file's name is the prefix, a mark of the installation
/// (the executable's path), and a fingerprint of the contents of the jars and of everything else
/// that makes the JVM refuse an archive, so that a launch never meets an archive of other classes.
/// Appends nothing when it would not help or could end the launch: one of the options before, or
/// of the environment, rules it out, the runtime writes none, an entry of the class path is not a
/// jar, the code page lacks a character of the path, the archive cannot be written, or another
/// process is to write it. Unless the launch is only predicted, creates the folder (its parent must
/// exist) and deletes the other archives of the installation, except those that are in use.
void AddFastStartOption(const FastStartInputs& inputs, JvmOptions& options);

}  // namespace tarn
