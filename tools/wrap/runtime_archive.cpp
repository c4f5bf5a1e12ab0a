#include "tools/wrap/runtime_archive.h"

#include <cstdlib>

#include "tools/common/child_process.h"
#include "tools/common/failure.h"
#include "tools/common/text_encoding.h"
#include "tools/wrap/runtime_folder.h"

namespace tarn::tools {
namespace {

namespace fs = std::filesystem;

constexpr char kOption[] = "-Xshare:dump";

// Runs a Windows program of the result.
ProcessResult Run(const fs::path& program, std::chrono::milliseconds timeLimit) {
    std::error_code error;
    const fs::path folder = fs::temp_directory_path(error);
#ifdef _WIN32
    return RunSilently(program, {kOption}, folder, timeLimit);
#else
    // Wine takes half a minute to make a prefix, and asks questions then.
    const char* const prefix = std::getenv("WINEPREFIX");
    const char* const home = std::getenv("HOME");
    const fs::path wine = prefix != nullptr ? fs::path(prefix)
                          : home != nullptr ? fs::path(home) / ".wine"
                                            : fs::path();
    if (!fs::exists(wine / "system.reg", error)) return {};
    return RunSilently("wine", {Utf8OfPath(program), kOption}, folder, timeLimit);
#endif
}

}  // namespace

void MakeRuntimeArchive(const fs::path& runtime, const fs::path& original,
                        std::vector<std::string>& warnings, std::chrono::milliseconds timeLimit) {
    std::error_code error;
    const fs::path archive = runtime / "bin" / "server" / "classes.jsa";
    if (fs::exists(archive, error) || !fs::exists(archive.parent_path() / "jvm.dll", error)) return;
    const ProcessResult run = Run(fs::absolute(runtime / "bin" / "java.exe", error), timeLimit);
    // The JVM makes the file read-only, which would keep Windows from replacing the folder.
    fs::permissions(archive, fs::perms::owner_write, fs::perm_options::add, error);
    const std::uintmax_t size = fs::file_size(archive, error);
    if (run.exitCode == 0 && !error && size > 0) return;
    fs::remove(archive, error);
    const std::string shipped = kShippedRuntime;
    if (run.isTimedOut) {
        const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(timeLimit);
        throw Failure(original, "a copy of its bin\\java.exe " + std::string(kOption) +
                                    " has not ended after " + std::to_string(seconds.count()) +
                                    " seconds; use --no-runtime-archive, or a runtime that starts");
    }
    warnings.push_back(shipped +
                       "\\bin\\server\\classes.jsa is missing, the archive of the runtime's own "
                       "classes: Java starts slower without it. On Windows, run \"" +
                       shipped + "\\bin\\java.exe " + kOption +
                       "\" once in the application's folder");
}

}  // namespace tarn::tools
