#include "tools/common/whole_file.h"

#include <cerrno>
#include <cstdio>
#include <random>
#include <system_error>

#include "tools/common/failure.h"
#include "tools/common/system.h"

namespace tarn::tools {
namespace {

constexpr int kTemporaryNames = 100;
constexpr std::size_t kCopiedAtOnce = 1U << 20U;

[[noreturn]] void Fail(const std::filesystem::path& file, const char* problem, int error) {
    throw Failure(file, std::string(problem) + " (" + std::generic_category().message(error) + ")");
}

// Deletes the file in the destructor unless Keep was called.
class FileRemover {
  public:
    explicit FileRemover(std::filesystem::path path) : path_(std::move(path)) {}
    ~FileRemover() {
        std::error_code ignored;
        if (!path_.empty()) std::filesystem::remove(path_, ignored);
    }
    FileRemover(const FileRemover&) = delete;
    FileRemover& operator=(const FileRemover&) = delete;

    void Keep() { path_.clear(); }

  private:
    std::filesystem::path path_;
};

// Writes and closes; 0 or an errno value.
int WriteAndClose(UniqueStream stream, std::span<const std::byte> content) {
    errno = 0;
    // Empty content may have no address, which `fread` and `fwrite` do not allow.
    const bool isWritten = (content.empty() || std::fwrite(content.data(), 1, content.size(),
                                                           stream.get()) == content.size()) &&
                           std::fflush(stream.get()) == 0;
    const int writeError = errno;
    // A full disk may be reported only now.
    const bool isClosed = std::fclose(stream.release()) == 0;
    if (isWritten && isClosed) return 0;
    const int error = isWritten ? errno : writeError;
    return error != 0 ? error : EIO;
}

UniqueStream OpenForReading(const std::filesystem::path& file) {
    std::error_code error;
    if (std::filesystem::is_directory(file, error)) {
        throw Failure(file, "is a folder; a file is required");
    }
    UniqueStream opened = OpenRegularFile(file);
    if (!opened && errno == EINVAL) throw Failure(file, "cannot be read: not a regular file");
    if (!opened) Fail(file, "cannot be read", errno);
    return opened;
}

// Copies all bytes and closes `to`, also on failure.
void CopyBytes(const UniqueStream& from, const std::filesystem::path& source, UniqueStream to,
               const std::filesystem::path& file,
               const std::function<void(std::uintmax_t)>& copied) {
    Bytes part(kCopiedAtOnce);
    for (;;) {
        errno = 0;
        const std::size_t size = std::fread(part.data(), 1, part.size(), from.get());
        if (std::ferror(from.get()) != 0) Fail(source, "cannot be read to its end", errno);
        if (size == 0) break;
        if (std::fwrite(part.data(), 1, size, to.get()) != size) {
            Fail(file, "cannot be written", errno);
        }
        copied(size);
    }
    if (const int error = WriteAndClose(std::move(to), {})) Fail(file, "cannot be written", error);
}

}  // namespace

std::string_view AsText(std::span<const std::byte> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

std::span<const std::byte> AsBytes(std::string_view text) {
    return std::as_bytes(std::span(text));
}

Bytes ReadWholeFile(const std::filesystem::path& file, std::uintmax_t limit) {
    std::error_code error;
    const UniqueStream opened = OpenForReading(file);
    const std::uintmax_t size = std::filesystem::file_size(file, error);
    if (error) throw Failure(file, "cannot be read (" + error.message() + ")");
    if (size > limit) throw Failure(file, "is too large");
    Bytes content(static_cast<std::size_t>(size));
    if (!content.empty() &&
        std::fread(content.data(), 1, content.size(), opened.get()) != content.size()) {
        Fail(file, "cannot be read to its end", errno);
    }
    return content;
}

void WriteNewFile(const std::filesystem::path& file, std::span<const std::byte> content) {
    UniqueStream stream = CreateNewFile(file);
    if (!stream) Fail(file, "cannot be written", errno);
    FileRemover remover(file);
    if (const int error = WriteAndClose(std::move(stream), content)) {
        Fail(file, "cannot be written", error);
    }
    remover.Keep();
}

void CopyToNewFile(const std::filesystem::path& source, const std::filesystem::path& file,
                   const std::function<void(std::uintmax_t)>& copied) {
    const UniqueStream from = OpenForReading(source);
    UniqueStream to = CreateNewFile(file);
    if (!to) Fail(file, "cannot be written", errno);
    FileRemover remover(file);
    CopyBytes(from, source, std::move(to), file, copied);
    remover.Keep();
}

void WriteWholeFile(const std::filesystem::path& file, std::span<const std::byte> content) {
    std::filesystem::path beside;
    UniqueStream stream;
    for (int attempt = 0; !stream && attempt < kTemporaryNames; ++attempt) {
        beside = TemporaryNameFor(file);
        stream = CreateNewFile(beside);
        if (!stream && errno != EEXIST) break;
    }
    if (!stream) Fail(file, "cannot be written", errno);
    FileRemover remover(beside);
    if (const int error = WriteAndClose(std::move(stream), content)) {
        Fail(file, "cannot be written", error);
    }
    std::error_code renamed;
    std::filesystem::rename(beside, file, renamed);
    if (renamed) throw Failure(file, "cannot be replaced (" + renamed.message() + ")");
    remover.Keep();
}

void WriteWholeFile(const std::filesystem::path& file, std::string_view content) {
    WriteWholeFile(file, AsBytes(content));
}

std::filesystem::path TemporaryNameFor(const std::filesystem::path& path) {
    std::random_device random;
    char suffix[32];
    std::snprintf(suffix, sizeof suffix, ".%08x%08x.tmp", static_cast<unsigned>(random()),
                  static_cast<unsigned>(random()));
    std::filesystem::path beside = path;
    beside += suffix;
    return beside;
}

}  // namespace tarn::tools
