#include "jvm/fast_start.h"

#include <algorithm>
#include <cstring>

#include "runtime/runtime_version.h"

namespace tarn {
namespace {

constexpr int kFirstToWrite = 21;

constexpr std::uint32_t kEndSignature = 0x06054B50;
constexpr std::size_t kEndSize = 22;
constexpr std::size_t kDirectorySizeOffset = 12;
// In bytes. A larger number is no size: 0xFFFFFFFF refers to another record, which need not be
// read, because jars of that kind do not exist in practice.
constexpr std::uint32_t kLargestDirectory = 1U << 30;
// A file with more than 65,535 entries has two records between the directory and its end record.
constexpr std::uint32_t kZip64RecordsSize = 56 + 20;

// Multiplied by, this odd number spreads each bit over all higher ones.
constexpr std::uint64_t kSpread = 0x9E3779B97F4A7C15;

std::uint32_t NumberAt(std::span<const std::byte> bytes, std::size_t at) {
    std::uint32_t number;
    std::memcpy(&number, bytes.data() + at, sizeof number);
    return number;
}

}  // namespace

bool WritesArchives(std::string_view releaseFile) {
    // The leading number of a version such as "21.0.8", in quotes or not; "1.8.0_392" has 1.
    int feature = 0;
    for (const char c : JavaVersionIn(releaseFile)) {
        const bool isDigit = c >= '0' && c <= '9';
        if (isDigit) feature = feature * 10 + (c - '0');
        if (feature >= kFirstToWrite || (feature != 0 && !isDigit)) break;
    }
    return feature >= kFirstToWrite;
}

bool RulesOutArchive(const std::string& options) {
    // One text of terminated words takes less of the launcher than a table of pointers.
    const char* word =
        "Archive\0"
        "AOT\0"
        "-javaagent\0"
        "-agent\0"
        "-Xrun\0"
        "--limit-\0"
        "--patch-\0"
        "--upgrade-\0";
    while (*word != '\0') {
        if (std::strstr(options.c_str(), word) != nullptr) return true;
        word += std::strlen(word) + 1;
    }
    return false;
}

void Fingerprint::Add(std::span<const std::byte> bytes) {
    // The length first, so that no two sequences of pieces are the same bytes.
    std::uint64_t next = bytes.size();
    for (;;) {
        value_ = (value_ ^ next) * kSpread;
        value_ ^= value_ >> 32;
        if (bytes.empty()) return;
        next = 0;
        const std::size_t size = std::min(sizeof next, bytes.size());
        std::memcpy(&next, bytes.data(), size);
        bytes = bytes.subspan(size);
    }
}

std::uint32_t ZipDirectoryDistance(std::span<const std::byte> tail) {
    for (std::size_t length = kEndSize; length <= tail.size(); ++length) {
        const std::size_t at = tail.size() - length;
        if (NumberAt(tail, at) == kEndSignature) {
            const std::uint32_t size = NumberAt(tail, at + kDirectorySizeOffset);
            if (size > kLargestDirectory) return 0;
            return static_cast<std::uint32_t>(length) + kZip64RecordsSize + size;
        }
    }
    return 0;
}

}  // namespace tarn
