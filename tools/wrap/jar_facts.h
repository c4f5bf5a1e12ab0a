#pragma once

#include <string>
#include <vector>

#include "tools/java/jar_file.h"
#include "tools/java/manifest.h"

namespace tarn::tools {

/// What a jar says about the application in it. Texts are UTF-8 and empty when it does not say.
struct JarFacts {
    std::string mainClass;
    std::string title;
    std::string version;
    std::string vendor;
    std::string splashEntry;  // the picture's entry in the jar

    /// The oldest Java that the main class runs on, such as "1.8" or "17"; empty when the class is
    /// not in this jar.
    std::string minimumVersion;

    /// JVM options that stand for attributes which only "java -jar" reads.
    std::vector<std::string> vmParameters;
};

/// Reads the facts. `mainClass` and `minimumVersion` go before what the jar says, when they are not
/// empty. Throws Failure when there is no main class at all; adds to `warnings` what the launcher
/// cannot do for the jar.
JarFacts ReadJarFacts(const JarFile& jar, const std::string& mainClass,
                      const std::string& minimumVersion, std::vector<std::string>& warnings);

}  // namespace tarn::tools
