#include "tools/wrap/runtime_folder.h"

#include "tools/common/failure.h"
#include "tools/common/text_encoding.h"
#include "tools/image/executable.h"

namespace tarn::tools {
namespace {

namespace fs = std::filesystem;

constexpr std::uint16_t kMachineAmd64 = 0x8664;
constexpr std::uintmax_t kMebibyte = 1U << 20;

}  // namespace

void CheckRuntime(const fs::path& runtime) {
    std::error_code error;
    for (const char* const kind : {"server", "client"}) {
        const fs::path library = runtime / "bin" / kind / "jvm.dll";
        if (!fs::exists(library, error)) continue;
        const std::uint16_t machine =
            WithFileName(library, [&] { return Executable(ReadWholeFile(library)).Machine(); });
        if (machine == kMachineAmd64) return;
        throw Failure(library, "is not for 64-bit Windows on x64; such a runtime is needed");
    }
    const bool isOther = fs::exists(runtime / "lib" / "server" / "libjvm.so", error) ||
                         fs::exists(runtime / "lib" / "server" / "libjvm.dylib", error);
    if (isOther)
        throw Failure(runtime, "is a Java runtime of another system; one for Windows is needed");
    throw Failure(runtime, "holds no Java runtime (bin/server/jvm.dll was not found in it)");
}

void CopyRuntime(const fs::path& runtime, const OutputFolder& output, const Console& console) {
    const std::vector<fs::path> files = FilesBelow(runtime);
    std::uintmax_t whole = 0;
    std::error_code error;
    for (const fs::path& file : files) whole += fs::file_size(runtime / file, error);
    std::uintmax_t done = 0;
    for (const fs::path& file : files) {
        console.ShowProgress("copying the runtime: " + std::to_string(done / kMebibyte) + " of " +
                             std::to_string(whole / kMebibyte) + " MiB");
        const Bytes content = ReadWholeFile(runtime / file);
        output.Write(
            std::string(kShippedRuntime) + "/" + Utf8OfPath(fs::path(file.generic_string())),
            content);
        done += content.size();
    }
    console.ShowProgress("");
}

}  // namespace tarn::tools
