#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarn {

/// Memory sizes in bytes, of which "Virtual Machine Parameters" can state percentages.
struct MemorySizes {
    /// Physical memory of the machine.
    std::uint64_t totalPhysical = 0;
    /// Unused address space of this process.
    std::uint64_t availableVirtual = 0;
};

/// Reads the memory sizes of this machine and process (`GlobalMemoryStatus`).
MemorySizes ReadMemorySizes();

/// Splits "Virtual Machine Parameters" at runs of spaces outside double quotes. The tokens keep
/// their quotes. A quote that is not closed extends its token to the end of the text.
std::vector<std::wstring> SplitVmParameters(std::wstring_view text);

/// Removes the double quotes around quoted runs. Of a doubled closing quote one stays, as the last
/// character of the run. An opening quote without a closing one stays.
std::wstring RemoveQuotes(std::wstring option);

/// The result of `ScanNumbers`.
struct ScannedNumbers {
    /// Number of characters before the first digit or ":"; the text's length when there is none.
    std::size_t prefixLength = 0;
    std::vector<std::uint64_t> numbers;
};

/// Reads the numbers of a size option, from the first digit or ":" on. Digits extend the current
/// number, ":" starts the next one at 0, other characters are skipped. The last character is the
/// unit and is never read as a digit.
ScannedNumbers ScanNumbers(std::wstring_view text);

/// Whether an option states a heap or stack size as a percentage: it begins with "-Xms", "-Xmx" or
/// "-Xss" (case-sensitive) and ends in P (of the physical memory) or T (of the address space), in
/// either case.
bool HasPercentageForm(std::wstring_view option);

/// The size in KiB of a percentage form such as "-Xmx50:256:1024p": the percentage, the minimum and
/// the maximum in MiB. The minimum wins over the maximum.
std::uint64_t PercentageSize(std::wstring_view option, const MemorySizes& memory);

/// Rewrites a percentage form as an absolute size in KiB, "-Xmx1048576K". The size is printed as a
/// signed 32-bit number, so 2^31 KiB and more wrap.
std::wstring ResolvePercentage(std::wstring_view option, const MemorySizes& memory);

/// The stack size in bytes of an "-Xss" option: one number and a unit (G, K or M, in either case;
/// any other character means 1). 0, the runtime's default, for any other form. The last
/// character is the unit even when it is a digit.
std::uint64_t StackSizeOf(std::wstring_view option);

/// The JVM option of one token: quotes removed, a percentage resolved. An "-Xss" option sets
/// `javaThreadStackSize`. Environment variables are not expanded.
std::wstring TransformVmParameter(std::wstring_view token, std::uint64_t& javaThreadStackSize);

}  // namespace tarn
