#pragma once

#include <string>
#include <vector>

#include "tools/java/manifest.h"

namespace tarn::tools {

/// The runtimes that may start an application.
struct PossibleRuntimes {
    int oldest = 0;       // the oldest Java version, such as 17; 0 when unknown
    bool isOnly = false;  // it is the version of the runtime that is shipped
};

/// The JVM options that are equivalent to the attributes that only "java -jar" reads: Add-Exports,
/// Add-Opens and Enable-Native-Access. They apply to the class path and to `mainModule`, unless it
/// is empty. A JVM ends the launch at an option that it does not know: for runtimes that may be too
/// old, an option that makes the JVM ignore the others precedes them; for one that is too old, they
/// are omitted, with a warning.
std::vector<std::string> ManifestOptions(const Manifest& manifest, const PossibleRuntimes& runtimes,
                                         const std::string& mainModule,
                                         std::vector<std::string>& warnings);

}  // namespace tarn::tools
