#include "tools/wrap/runtime_folder.h"

#include "tools/common/failure.h"
#include "tools/image/executable.h"

namespace tarn::tools {
namespace {

namespace fs = std::filesystem;

constexpr std::uint16_t kMachineAmd64 = 0x8664;

}  // namespace

void CheckRuntime(const fs::path& runtime) {
    std::error_code error;
    for (const char* const kind : {"server", "client"}) {
        const fs::path library = runtime / "bin" / kind / "jvm.dll";
        if (!fs::exists(library, error)) continue;
        const std::uint16_t machine =
            WithFileName(library, [&] { return Executable(ReadWholeFile(library)).Machine(); });
        if (machine == kMachineAmd64) return;
        throw Failure(library, "is not for 64-bit Windows on x64, which is required");
    }
    const bool isOther = fs::exists(runtime / "lib" / "server" / "libjvm.so", error) ||
                         fs::exists(runtime / "lib" / "server" / "libjvm.dylib", error);
    if (isOther)
        throw Failure(runtime, "is a Java runtime for another system; one for Windows is required");
    throw Failure(runtime, "contains no Java runtime (bin/server/jvm.dll was not found)");
}

}  // namespace tarn::tools
