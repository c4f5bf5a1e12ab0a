#include "tools/wrap/jar_facts.h"

#include "tools/common/failure.h"

namespace tarn::tools {
namespace {

Manifest ManifestOf(const JarFile& jar, const std::string& mainClass) {
    try {
        return Manifest::Of(jar);
    } catch (const Failure& failure) {
        if (!mainClass.empty() && !jar.Has(kManifestEntry)) return {};
        throw Failure(std::string(failure.what()) + "; specify the main class with --main-class");
    }
}

}  // namespace

JarFacts ReadJarFacts(const JarFile& jar, const std::string& mainClass,
                      std::vector<std::string>& warnings) {
    JarFacts facts;
    facts.manifest = ManifestOf(jar, mainClass);
    const Manifest& manifest = facts.manifest;
    facts.mainClass = mainClass.empty() ? manifest.Get("Main-Class") : mainClass;
    if (facts.mainClass.empty()) {
        throw Failure(jar.Path(), "has no Main-Class in its manifest; specify --main-class");
    }
    facts.title = manifest.GetFirst({"Implementation-Title", "Bundle-Name"});
    facts.version = manifest.GetFirst({"Implementation-Version", "Bundle-Version"});
    facts.vendor = manifest.GetFirst({"Implementation-Vendor", "Bundle-Vendor"});
    facts.splashEntry = manifest.Get("SplashScreen-Image");
    if (!manifest.Get("Launcher-Agent-Class").empty()) {
        warnings.push_back(
            "Launcher-Agent-Class of the manifest applies to \"java -jar\" only; use "
            "--vm-parameters \"-javaagent:JAR\" for an agent");
    }
    return facts;
}

}  // namespace tarn::tools
