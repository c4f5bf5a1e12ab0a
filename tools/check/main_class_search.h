#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tarn::tools {

/// The result of searching a class path for a class.
struct ClassSearch {
    bool isFound = false;
    /// The Java feature that its class file requires; 0 when it is not a class file.
    int javaVersion = 0;
    /// Similar classes: the same name in another case or package.
    std::vector<std::string> similar;
    /// Files that are not readable jars, with the reason.
    struct BadJar {
        std::filesystem::path file;
        std::string problem;
    };
    std::vector<BadJar> badJars;
};

/// Searches for a class ("com/example/Main") in the jars and folders, and in the jars that their
/// manifests name. `executable`, if any, may have an appended jar; without one it is not reported.
ClassSearch FindClass(const std::string& className, const std::vector<std::filesystem::path>& files,
                      const std::optional<std::filesystem::path>& executable);

}  // namespace tarn::tools
