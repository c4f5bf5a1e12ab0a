#include <array>
#include <cstdint>
#include <cstring>

#include "tools/explain/runtime_facts.h"

namespace tarn::tools {

std::string JavaVersionIn(std::string_view releaseFile) {
    constexpr std::string_view kKey = "JAVA_VERSION=";
    while (!releaseFile.empty()) {
        const std::string_view line = releaseFile.substr(0, releaseFile.find_first_of("\r\n"));
        releaseFile.remove_prefix(line.size() == releaseFile.size() ? line.size()
                                                                    : line.size() + 1);
        if (!line.starts_with(kKey)) continue;
        std::string version(line.substr(kKey.size()));
        std::erase(version, '"');
        return version;
    }
    return {};
}

std::string FileVersionIn(std::span<const std::byte> versionResource) {
    // The fixed part stands at a multiple of four bytes and begins with a mark of its own.
    constexpr std::uint32_t kMark = 0xFEEF04BD;
    std::array<std::uint32_t, 4> fixed{};  // mark, structure version, file version high and low
    for (std::size_t at = 0; at + sizeof fixed <= versionResource.size(); at += sizeof kMark) {
        std::memcpy(fixed.data(), versionResource.data() + at, sizeof fixed);
        if (fixed[0] != kMark) continue;
        return std::to_string(fixed[2] >> 16) + '.' + std::to_string(fixed[2] & 0xFFFF) + '.' +
               std::to_string(fixed[3] >> 16) + '.' + std::to_string(fixed[3] & 0xFFFF);
    }
    return {};
}

}  // namespace tarn::tools
