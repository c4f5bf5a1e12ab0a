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
        try {
            if (Executable(ReadWholeFile(library)).Machine() == kMachineAmd64) return;
        } catch (const Failure& failure) {
            throw Failure(library, failure.what());
        }
        throw Failure(library, "is not for 64-bit Windows on x64; such a runtime is needed");
    }
    const bool isOther = fs::exists(runtime / "lib" / "server" / "libjvm.so", error) ||
                         fs::exists(runtime / "lib" / "server" / "libjvm.dylib", error);
    if (isOther)
        throw Failure(runtime, "is a Java runtime of another system; one for Windows is needed");
    throw Failure(runtime, "holds no Java runtime (bin/server/jvm.dll was not found in it)");
}

std::string VersionOfRuntime(const fs::path& runtime) {
    std::error_code error;
    const fs::path file = runtime / "release";
    if (!fs::is_regular_file(file, error)) return {};
    const Bytes content = ReadWholeFile(file);
    const std::string_view text(reinterpret_cast<const char*>(content.data()), content.size());
    constexpr std::string_view kKey = "JAVA_VERSION=\"";
    std::size_t begin = text.find(kKey);
    if (begin == std::string_view::npos) return {};
    begin += kKey.size();
    return std::string(text.substr(begin, text.find('"', begin) - begin));
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
