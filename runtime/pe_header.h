#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace tarn {

/// Whether the bytes of a file begin like an executable image and hold its headers up to and with
/// the machine field. Says nothing about what stands there; it only makes a file of any bytes safe
/// to be looked at through those headers.
bool HasPeHeaders(std::span<const std::byte> file);

/// The machine field in the file header of a library (0x8664 for 64-bit x86, 0x14C for 32-bit x86).
/// 0 for anything that cannot be read, or is no executable image.
std::uint16_t MachineOfFile(const std::wstring& jvmLibraryPath);

/// Whether `jvm.dll` is to be left to the paired launcher: "Pair Product" is set and the library's
/// file header says 32-bit x86. Anything that cannot be read, or is no executable image, is not.
/// Stands on a read-only file mapping and Dbghelp's `ImageNtHeader`, loaded for this call.
bool NeedsPairedLauncher(const std::wstring& jvmLibraryPath, const std::wstring& pairProduct);

}  // namespace tarn
