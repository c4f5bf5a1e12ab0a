#include "tools/common/whole_file.h"

#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>

#include "tools/common/failure.h"

namespace tarn::tools {
namespace {

struct Closer {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, Closer>;

File Open(const std::filesystem::path& path, bool toWrite) {
#ifdef _WIN32
    return File(_wfopen(path.c_str(), toWrite ? L"wb" : L"rb"));
#else
    return File(std::fopen(path.c_str(), toWrite ? "wb" : "rb"));
#endif
}

[[noreturn]] void Fail(const std::filesystem::path& file, const char* problem, int error) {
    throw Failure(file, std::string(problem) + " (" + std::generic_category().message(error) + ")");
}

// Removes the file it names unless told that it is finished.
class Unfinished {
  public:
    explicit Unfinished(std::filesystem::path path) : path_(std::move(path)) {}
    ~Unfinished() {
        std::error_code ignored;
        if (!path_.empty()) std::filesystem::remove(path_, ignored);
    }
    Unfinished(const Unfinished&) = delete;
    Unfinished& operator=(const Unfinished&) = delete;
    void Finish() { path_.clear(); }

  private:
    std::filesystem::path path_;
};

}  // namespace

Bytes ReadWholeFile(const std::filesystem::path& file, std::uintmax_t limit) {
    std::error_code error;
    if (std::filesystem::is_directory(file, error)) {
        throw Failure(file, "is a folder, a file is needed");
    }
    const File opened = Open(file, false);
    if (!opened) Fail(file, "cannot be read", errno);
    const std::uintmax_t size = std::filesystem::file_size(file, error);
    if (error) throw Failure(file, "cannot be read (" + error.message() + ")");
    if (size > limit) throw Failure(file, "is too large");
    Bytes content(static_cast<std::size_t>(size));
    if (std::fread(content.data(), 1, content.size(), opened.get()) != content.size()) {
        Fail(file, "cannot be read to its end", errno);
    }
    return content;
}

void WriteWholeFile(const std::filesystem::path& file, std::span<const std::byte> content) {
    std::filesystem::path beside = file;
    beside += ".new";
    File opened = Open(beside, true);
    if (!opened) Fail(file, "cannot be written", errno);
    Unfinished unfinished(beside);
    const bool isWritten =
        std::fwrite(content.data(), 1, content.size(), opened.get()) == content.size() &&
        std::fflush(opened.get()) == 0;
    const int error = errno;
    // A full disk may show only now.
    const bool isClosed = std::fclose(opened.release()) == 0;
    if (!isWritten || !isClosed) Fail(file, "cannot be written", isWritten ? errno : error);
    std::error_code renamed;
    std::filesystem::rename(beside, file, renamed);
    if (renamed) throw Failure(file, "cannot be replaced (" + renamed.message() + ")");
    unfinished.Finish();
}

void WriteWholeFile(const std::filesystem::path& file, std::string_view content) {
    WriteWholeFile(file, std::as_bytes(std::span(content)));
}

}  // namespace tarn::tools
