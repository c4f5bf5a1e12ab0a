#pragma once

#include <string>
#include <string_view>

#include "runtime/jvm_library_layout.h"
#include "runtime/search_policy.h"

namespace tarn {

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
