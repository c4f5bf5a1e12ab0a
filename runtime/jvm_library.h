#pragma once

#include <span>
#include <string>
#include <string_view>

#include "runtime/search_policy.h"

namespace tarn {

/// A path relative to a runtime's home where a `jvm.dll` may be.
struct JvmLibraryPlace {
    std::wstring_view path;
    /// The library at this path is a server JVM.
    bool server;
};

/// Returns the places to try for a JVM type, in order.
std::span<const JvmLibraryPlace> JvmLibraryPlaces(JvmType type);

/// Returns the path without its last `count` components, each cut at the last backslash. A path
/// without a backslash stays as it is.
std::wstring_view CutComponents(std::wstring_view path, int count);

/// Returns the home of the runtime that a `jvm.dll` belongs to, without a trailing backslash.
inline std::wstring_view RuntimeHomeOf(std::wstring_view jvmLibraryPath) {
    return CutComponents(jvmLibraryPath, 3);
}

/// Returns the `bin` folder of the runtime that a `jvm.dll` belongs to, without a trailing
/// backslash.
inline std::wstring_view RuntimeBinOf(std::wstring_view jvmLibraryPath) {
    return CutComponents(jvmLibraryPath, 2);
}

/// Returns the path of the `jvm.dll` in `home` for a JVM type; empty when there is none. `home`
/// ends in a backslash; an empty one makes the path relative to the current directory. Sets
/// `server` only when a library is found. Tests existence with `FindFirstFileW`.
std::wstring SelectJvmLibrary(const std::wstring& home, JvmType type, bool& server);

/// Sets the environment variables `TARN_JVM_PATH` and `TARN_JVM_HOME` for the application and its
/// child processes (`SetEnvironmentVariableW`). Failures are ignored.
void PublishJvmLocation(const std::wstring& jvmLibraryPath);

/// Returns the path of a file in the `bin` folder of the library's runtime; empty when there is no
/// such file.
std::wstring FindInRuntimeBin(const std::wstring& jvmLibraryPath, std::wstring_view fileName);

}  // namespace tarn
