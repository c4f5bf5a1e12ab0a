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

    /// The oldest Java version that runs the main class, such as "1.8" or "17"; empty when the
    /// class is not in this jar.
    std::string minimumVersion;

    /// JVM options equivalent to the attributes that only "java -jar" reads.
    std::vector<std::string> vmParameters;
};

/// Reads the facts. `mainClass` and `minimumVersion` take precedence over the jar unless empty.
/// Throws Failure when no main class is specified; adds unsupported attributes to `warnings`.
JarFacts ReadJarFacts(const JarFile& jar, const std::string& mainClass,
                      const std::string& minimumVersion, std::vector<std::string>& warnings);

}  // namespace tarn::tools
