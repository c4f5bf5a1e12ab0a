#pragma once

#include <string>

namespace tarn {

/// Whether `jvm.dll` is to be left to the paired launcher: "Pair Product" is set and the library's
/// file header says 32-bit x86. Anything that cannot be read, or is no executable image, is not.
/// Stands on a read-only file mapping and Dbghelp's `ImageNtHeader`, loaded for this call.
bool NeedsPairedLauncher(const std::wstring& jvmLibraryPath, const std::wstring& pairProduct);

}  // namespace tarn
