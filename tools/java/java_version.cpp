#include "tools/java/java_version.h"

#include <algorithm>
#include <charconv>

#include "tools/common/failure.h"
#include "tools/common/whole_file.h"

namespace tarn::tools {
namespace {

constexpr int kFirstWithoutOne = 9;  // earlier versions are called "1.N"
constexpr std::uintmax_t kLargestReleaseFile = 1U << 20;

std::string ValueIn(std::string_view releaseFile, std::string_view key) {
    while (!releaseFile.empty()) {
        const std::string_view line = releaseFile.substr(0, releaseFile.find_first_of("\r\n"));
        releaseFile.remove_prefix(std::min(line.size() + 1, releaseFile.size()));
        if (!line.starts_with(key)) continue;
        std::string value(line.substr(key.size()));
        std::erase(value, '"');
        return value;
    }
    return {};
}

// Empty when the file cannot be read.
std::string ReleaseFileOf(const std::filesystem::path& home) {
    try {
        return std::string(AsText(ReadWholeFile(home / "release", kLargestReleaseFile)));
    } catch (const Failure&) {
        return {};
    }
}

}  // namespace

int JavaFeatureOf(std::string_view version) {
    if (version.starts_with("1.")) version.remove_prefix(2);
    int feature = 0;
    std::from_chars(version.data(), version.data() + version.size(), feature);
    return std::max(feature, 0);
}

std::string JavaVersionOfFeature(int feature) {
    const std::string number = std::to_string(feature);
    return feature < kFirstWithoutOne ? "1." + number : number;
}

int JavaFeatureOfClass(std::span<const std::byte> classFile) {
    constexpr std::byte kMagic[] = {std::byte{0xCA}, std::byte{0xFE}, std::byte{0xBA},
                                    std::byte{0xBE}};
    constexpr std::size_t kHeaderSize = 8;
    constexpr int kMajorOfJava1 = 45;
    if (classFile.size() < kHeaderSize) return 0;
    if (!std::equal(std::begin(kMagic), std::end(kMagic), classFile.begin())) return 0;
    const int major = static_cast<int>(classFile[6]) << 8 | static_cast<int>(classFile[7]);
    return std::max(major - kMajorOfJava1 + 1, 0);
}

std::string JavaVersionIn(std::string_view releaseFile) {
    return ValueIn(releaseFile, "JAVA_VERSION=");
}

std::set<std::string> JavaModulesIn(std::string_view releaseFile) {
    const std::string words = ValueIn(releaseFile, "MODULES=");
    std::set<std::string> modules;
    for (std::size_t at = 0; (at = words.find_first_not_of(' ', at)) != std::string::npos;) {
        const std::size_t end = std::min(words.find(' ', at), words.size());
        modules.insert(words.substr(at, end - at));
        at = end;
    }
    return modules;
}

std::string ReadJavaVersion(const std::filesystem::path& home) {
    return JavaVersionIn(ReleaseFileOf(home));
}

std::set<std::string> ReadJavaModules(const std::filesystem::path& home) {
    return JavaModulesIn(ReleaseFileOf(home));
}

}  // namespace tarn::tools
