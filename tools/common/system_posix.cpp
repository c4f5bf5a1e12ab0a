#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#ifdef __APPLE__
#include <mach-o/dyld.h>
#endif

#include <cerrno>
#include <cstdlib>
#include <ctime>

#include "tools/common/system.h"

namespace tarn::tools {

UniqueStream OpenRegularFile(const std::filesystem::path& file) {
    // Without O_NONBLOCK, opening a named pipe waits for a writer.
    const int descriptor = open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0) return nullptr;
    struct stat status = {};
    if (fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) {
        close(descriptor);
        errno = EINVAL;
        return nullptr;
    }
    return UniqueStream(fdopen(descriptor, "rb"));
}

UniqueStream CreateNewFile(const std::filesystem::path& file) {
    constexpr mode_t kMode = 0666;  // the process's umask applies
    const int descriptor =
        open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, kMode);
    return UniqueStream(descriptor < 0 ? nullptr : fdopen(descriptor, "wb"));
}

bool IsLink(const std::filesystem::path& path) {
    std::error_code error;
    return std::filesystem::is_symlink(path, error);
}

std::filesystem::path ProgramFolder() {
    std::error_code error;
#ifdef __APPLE__
    std::uint32_t size = 0;
    _NSGetExecutablePath(nullptr, &size);
    std::string path(size, '\0');
    if (_NSGetExecutablePath(path.data(), &size) != 0) return {};
    return std::filesystem::canonical(path.c_str(), error).parent_path();
#else
    return std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
#endif
}

void UseUtc() {
    setenv("TZ", "UTC", 1);
    tzset();
}

Terminals PrepareTerminals() {
    return {isatty(STDOUT_FILENO) != 0, isatty(STDERR_FILENO) != 0};
}

}  // namespace tarn::tools
