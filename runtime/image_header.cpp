#include "runtime/image_header.h"

#include <cstdint>

namespace tarn {

namespace {

// The old header in front of every image: its mark, and the place of the file's real headers in
// its last four bytes.
constexpr std::size_t kOldHeaderSize = 64;
constexpr std::size_t kHeadersOffset = 60;
// "PE", two zeros and the 16-bit machine.
constexpr std::size_t kUpToMachine = 6;

std::uint32_t ByteAt(std::span<const std::byte> file, std::size_t index) {
    return std::to_integer<std::uint32_t>(file[index]);
}

}  // namespace

bool HoldsImageHeaders(std::span<const std::byte> file) {
    if (file.size() < kOldHeaderSize) return false;
    if (ByteAt(file, 0) != 'M' || ByteAt(file, 1) != 'Z') return false;
    // Little endian. A place beyond 2 GiB is a negative one to those who read it as signed.
    const std::uint32_t headers =
        ByteAt(file, kHeadersOffset) | ByteAt(file, kHeadersOffset + 1) << 8 |
        ByteAt(file, kHeadersOffset + 2) << 16 | ByteAt(file, kHeadersOffset + 3) << 24;
    if (headers > INT32_MAX) return false;
    return headers <= file.size() - kUpToMachine;
}

}  // namespace tarn
