#include "tools/wrap/native_libraries.h"

#include <algorithm>
#include <iterator>

#include "tools/common/ascii.h"
#include "tools/common/byte_io.h"
#include "tools/common/failure.h"

namespace tarn::tools {
namespace {

constexpr std::string_view kProcessors[] = {"x86",     "x86_64",   "x86-64",  "amd64", "i386",
                                            "aarch64", "aarch_64", "arm64",   "arm",   "arm32",
                                            "riscv64", "ppc64le",  "monocle", "s390x", "universal"};

struct System {
    std::string_view word;
    const char* name;
};

constexpr System kSystems[] = {{"linux", "Linux"}, {"mac", "macOS"},    {"macos", "macOS"},
                               {"osx", "macOS"},   {"macosx", "macOS"}, {"darwin", "macOS"}};

constexpr std::size_t kHeaders = 4096;  // bytes with the headers of a Windows library
constexpr std::uint16_t kMachineAmd64 = 0x8664;

// Removes a last word that is `-` or `.` and `word`.
bool RemoveLast(std::string_view& stem, std::string_view word) {
    if (!stem.ends_with(word) || stem.size() <= word.size()) return false;
    const char before = stem[stem.size() - word.size() - 1];
    if (before != '-' && before != '.') return false;
    stem.remove_suffix(word.size() + 1);
    return true;
}

// A classifier follows the version, or says what it is: "-1.0-", "-SNAPSHOT-", "-natives-".
bool IsBeforeClassifier(std::string_view stem) {
    const std::string_view word = stem.substr(stem.rfind('-') + 1);
    return (!word.empty() && word[0] >= '0' && word[0] <= '9') || word == "snapshot" ||
           word == "natives" || word == "native";
}

bool IsForX64(std::span<const std::byte> library) {
    constexpr std::size_t kNewHeader = 0x3C;  // where its offset is
    constexpr std::size_t kMachine = 4;       // after the signature
    try {
        const ByteReader reader(library);
        return reader.U16(reader.U32(kNewHeader) + kMachine) == kMachineAmd64;
    } catch (const Failure&) {
        return false;
    }
}

// What kind of native libraries a jar has.
struct Natives {
    bool hasX64 = false;
    bool hasOtherWindows = false;
    const char* otherSystem = nullptr;
};

Natives NativesOf(const ApplicationJar& jar) {
    Natives natives;
    for (const std::string& entry : jar.Names()) {
        const std::string name = ToLowerAscii(entry);
        if (name.ends_with(".dll")) {
            const bool isX64 = IsForX64(jar.ReadStart(entry, kHeaders));
            natives.hasX64 = natives.hasX64 || isX64;
            natives.hasOtherWindows = natives.hasOtherWindows || !isX64;
        } else if (name.ends_with(".so") || name.find(".so.") != std::string::npos) {
            natives.otherSystem = "Linux";
        } else if (name.ends_with(".dylib") || name.ends_with(".jnilib")) {
            natives.otherSystem = "macOS";
        }
    }
    return natives;
}

}  // namespace

std::string SystemOfClassifier(std::string_view fileName) {
    const std::string name = ToLowerAscii(fileName);
    std::string_view stem = name;
    if (stem.ends_with(".jar")) stem.remove_suffix(4);
    for (const std::string_view processor : kProcessors) {
        if (RemoveLast(stem, processor)) break;
    }
    for (const System& system : kSystems) {
        if (RemoveLast(stem, system.word) && IsBeforeClassifier(stem)) return system.name;
    }
    return {};
}

void WarnAboutOtherSystems(const ApplicationJars& jars, std::vector<std::string>& warnings) {
    for (const ApplicationJar& jar : jars) {
        if (jar.file.placement == Placement::Omitted) continue;
        const Natives natives = NativesOf(jar);
        if (natives.hasX64) continue;
        std::string system = SystemOfClassifier(jar.FileName());
        if (natives.hasOtherWindows) {
            system = "32-bit Windows or another processor";
        } else if (natives.otherSystem != nullptr && system.empty()) {
            system = natives.otherSystem;
        }
        if (!system.empty()) {
            warnings.push_back(jar.FileName() + ": is for " + system +
                               "; use the jar of the same library for Windows on x64");
        }
    }
}

}  // namespace tarn::tools
