#pragma once

#include <span>
#include <string>
#include <string_view>

#include "runtime/search_policy.h"

namespace tarn {

/// A place inside a runtime's home where a `jvm.dll` can stand.
struct JvmLibraryPlace {
    std::wstring_view path;
    bool server;
};

/// Where to look for the library that `type` asks for, in this order. A server JVM that is only
/// favoured is looked for once more among the others: the order is the one that applications were
/// set up with.
std::span<const JvmLibraryPlace> JvmLibraryPlaces(JvmType type);

/// The path with its last `count` components cut off, each at the last backslash; without one the
/// text stays.
std::wstring_view CutComponents(std::wstring_view path, int count);

/// The home of the runtime that a `jvm.dll` belongs to, without a backslash at its end.
inline std::wstring_view RuntimeHomeOf(std::wstring_view jvmLibraryPath) {
    return CutComponents(jvmLibraryPath, 3);
}

/// The `bin` folder of the runtime that a `jvm.dll` belongs to, without a backslash at its end.
inline std::wstring_view RuntimeBinOf(std::wstring_view jvmLibraryPath) {
    return CutComponents(jvmLibraryPath, 2);
}

/// The `jvm.dll` of the runtime in `home` that `type` asks for, empty when it has none. `home` must
/// end in a backslash; an empty one looks below the current directory. `server` becomes true or
/// false with a result and keeps its value without one. Existence is asked of `FindFirstFileW`.
std::wstring SelectJvmLibrary(const std::wstring& home, JvmType type, bool& server);

/// Tells the application and its child processes which runtime was chosen, through the environment
/// variables `TARN_JVM_PATH` and `TARN_JVM_HOME`. A failure is ignored.
void PublishJvmLocation(const std::wstring& jvmLibraryPath);

/// The full path of a file in the chosen runtime's `bin` folder, empty when it is not there.
std::wstring FindInRuntimeBin(const std::wstring& jvmLibraryPath, std::wstring_view fileName);

}  // namespace tarn
