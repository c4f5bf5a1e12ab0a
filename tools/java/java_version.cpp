#include "tools/java/java_version.h"

#include <algorithm>
#include <charconv>

#include "runtime/runtime_version.h"
#include "tools/common/failure.h"
#include "tools/common/whole_file.h"

namespace tarn::tools {
namespace {

constexpr int kFirstWithoutOne = 9;  // earlier versions are called "1.N"
constexpr std::uintmax_t kLargestReleaseFile = 1U << 20;

std::string WithoutQuotes(std::string_view releaseValue) {
    std::string text(releaseValue);
    std::erase_if(text, [](char character) { return character == '"' || character == '\r'; });
    return text;
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

std::string ReadJavaVersion(const std::filesystem::path& home) {
    return WithoutQuotes(JavaVersionIn(ReleaseFileOf(home)));
}

std::set<std::string> ReadJavaModules(const std::filesystem::path& home) {
    const std::string words = WithoutQuotes(ReleaseValueIn(ReleaseFileOf(home), "MODULES="));
    std::set<std::string> modules;
    for (std::size_t at = 0; (at = words.find_first_not_of(' ', at)) != std::string::npos;) {
        const std::size_t end = std::min(words.find(' ', at), words.size());
        modules.insert(words.substr(at, end - at));
        at = end;
    }
    return modules;
}

}  // namespace tarn::tools
