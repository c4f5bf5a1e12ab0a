#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarn {

/// The figures that percentages are taken of, in bytes.
struct MemorySizes {
    std::uint64_t totalPhysical = 0;
    /// Address space that this process has not used yet.
    std::uint64_t availableVirtual = 0;
};

/// Splits "Virtual Machine Parameters". A blank outside double quotes separates, and runs of blanks
/// count as one; quotes stay in the tokens. An unclosed quote makes all that follows one token.
std::vector<std::wstring> SplitVmParameters(std::wstring_view text);

/// Removes the double quotes around quoted runs. A closing quote that is doubled stands for one
/// quote inside the run and still ends it; an opening quote without its mate stays.
std::wstring RemoveQuotes(std::wstring option);

/// What `ScanNumbers` found in a text.
struct ScannedNumbers {
    /// How many characters stand before the first digit or ":"; all of them when there is none.
    std::size_t prefixLength = 0;
    std::vector<std::uint64_t> numbers;
};

/// Reads the numbers of a size option: from the first digit or ":" on, digits build a number, ":"
/// begins the next one, everything else is skipped. The last character is the unit and is never
/// read as a digit.
ScannedNumbers ScanNumbers(std::wstring_view text);

/// Whether an option gives a heap or stack size as a percentage: "-Xms", "-Xmx" or "-Xss" with the
/// last letter P (of the physical memory) or T (of the address space), in either case.
bool HasPercentageForm(std::wstring_view option);

/// The KiB that "-Xmx50:256:1024p" (percent, minimum and maximum in MiB) comes to. The minimum wins
/// over the maximum.
std::uint64_t PercentageSize(std::wstring_view option, const MemorySizes& memory);

/// Turns a percentage form into an absolute size in KiB, "-Xmx…K". The size is printed as a signed
/// 32-bit number, so 2^31 KiB and more wraps.
std::wstring ResolvePercentage(std::wstring_view option, const MemorySizes& memory);

/// The bytes that an "-Xss" option asks for: one number and its unit (G, K, M, in either case).
/// 0 for anything else, which leaves the size to the JVM. The last character counts as the unit
/// even when it is a digit.
std::uint64_t StackSizeOf(std::wstring_view option);

}  // namespace tarn
