#pragma once

#include <string>
#include <vector>

#include "tools/java/jar_file.h"
#include "tools/java/manifest.h"

namespace tarn::tools {

/// What a jar specifies about its application. Texts are UTF-8; empty when not specified.
struct JarFacts {
    std::string mainClass;
    std::string title;
    std::string version;
    std::string vendor;
    std::string splashEntry;  // entry of the picture in the jar
    Manifest manifest;
};

/// Reads the facts. `mainClass` takes precedence over the manifest unless empty. Throws Failure
/// when no main class is specified; adds unsupported attributes to `warnings`.
JarFacts ReadJarFacts(const JarFile& jar, const std::string& mainClass,
                      std::vector<std::string>& warnings);

}  // namespace tarn::tools
