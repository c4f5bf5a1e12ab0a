#include "tools/java/java_version.h"

#include <algorithm>

namespace tarn::tools {

int JavaFeatureOfClass(std::span<const std::byte> classFile) {
    constexpr std::byte kMark[] = {std::byte{0xCA}, std::byte{0xFE}, std::byte{0xBA},
                                   std::byte{0xBE}};
    constexpr std::size_t kHeadSize = 8;
    constexpr int kMajorOfJava1 = 45;
    if (classFile.size() < kHeadSize) return 0;
    if (!std::equal(std::begin(kMark), std::end(kMark), classFile.begin())) return 0;
    const int major = static_cast<int>(classFile[6]) << 8 | static_cast<int>(classFile[7]);
    return std::max(major - kMajorOfJava1 + 1, 0);
}

}  // namespace tarn::tools
