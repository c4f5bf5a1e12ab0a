#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tarn::tools {

/// What looking for a class in the files of a class path came to.
struct ClassSearch {
    bool isFound = false;
    /// The Java version that its class file is made for; 0 when it is not one.
    int javaVersion = 0;
    /// Classes that may have been meant: of that name in other letter case or in another package.
    std::vector<std::string> similar;
    /// Files that are no jars, with the reason.
    struct BadJar {
        std::filesystem::path file;
        std::string problem;
    };
    std::vector<BadJar> badJars;
};

/// Looks for a class ("com/example/Main") in the jars and folders, and in the jars that those name
/// in their manifests. `executable`, when it is there, may have a jar behind it; it is no bad jar
/// when it has none.
ClassSearch FindClass(const std::string& className, const std::vector<std::filesystem::path>& files,
                      const std::optional<std::filesystem::path>& executable);

}  // namespace tarn::tools
