// The version numbers of Java, as class files, runtimes and settings write them. A feature is the
// one number that counts: 8 for "1.8.0_231", 17 for "17.0.9".
#pragma once

#include <cstddef>
#include <filesystem>
#include <set>
#include <span>
#include <string>
#include <string_view>

namespace tarn::tools {

/// The feature number of a version text; 0 when it begins with no number.
int JavaFeatureOf(std::string_view version);

/// A feature as runtimes are registered: "1.8", "11".
std::string JavaVersionOfFeature(int feature);

/// The oldest feature that runs a class, from the header of its class file; 0 when the bytes are no
/// class file.
int JavaFeatureOfClass(std::span<const std::byte> classFile);

/// Returns the value of `JAVA_VERSION` in the file `release` of a runtime's home, without quotes;
/// empty when there is none or the file cannot be read.
std::string ReadJavaVersion(const std::filesystem::path& home);

/// Returns the words of `MODULES` in the same file, which lists them from Java 9 on.
std::set<std::string> ReadJavaModules(const std::filesystem::path& home);

}  // namespace tarn::tools
