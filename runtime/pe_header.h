#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace tarn {

/// Whether a file's bytes start with the DOS header of an executable image ("MZ") and contain its
/// PE headers up to the end of the machine field. Does not examine the headers themselves: it makes
/// reading the machine safe for a file of any content.
bool HasPeHeaders(std::span<const std::byte> file);

/// The machine field of libraries that this process can load.
#if defined(__aarch64__) || defined(_M_ARM64)
inline constexpr std::uint16_t kOwnMachine = 0xAA64;
#else
inline constexpr std::uint16_t kOwnMachine = 0x8664;
#endif

/// Returns the machine field in the first bytes of an executable image; 0 when they are not those
/// of an image, or end before the field. Unlike `MachineOfFile` it loads no library.
std::uint16_t MachineIn(std::span<const std::byte> file);

/// Returns the machine field of a library's file header (0x8664 for x64, 0x14C for x86). Returns 0
/// (`IMAGE_FILE_MACHINE_UNKNOWN`) when the file cannot be read or is no executable image. Maps the
/// file for reading and calls `ImageNtHeader` of Dbghelp, which is loaded for the call.
std::uint16_t MachineOfFile(const std::wstring& jvmLibraryPath);

/// Whether the paired launcher must load the `jvm.dll`: "Pair Product" is set, and the library's
/// machine is x86. False for a file that `MachineOfFile` cannot read.
bool NeedsPairedLauncher(const std::wstring& jvmLibraryPath, const std::wstring& pairProduct);

}  // namespace tarn
