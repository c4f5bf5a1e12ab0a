#include "tools/wrap/jar_facts.h"

#include "tools/common/failure.h"
#include "tools/java/java_version.h"

namespace tarn::tools {
namespace {

constexpr int kFirstWithModules = 9;
constexpr int kFirstWithNativeAccess = 17;

Manifest ManifestOf(const JarFile& jar, const std::string& mainClass) {
    try {
        return Manifest::Of(jar);
    } catch (const Failure& failure) {
        if (!mainClass.empty() && !jar.Has(kManifestEntry)) return {};
        throw Failure(std::string(failure.what()) + "; specify the main class with --main-class");
    }
}

class Options {
  public:
    Options(const Manifest& manifest, int feature, JarFacts& facts,
            std::vector<std::string>& warnings)
        : manifest_(manifest), feature_(feature), facts_(facts), warnings_(warnings) {}

    void AddForPackages(const char* attribute, const std::string& option) {
        for (const std::string& package : manifest_.GetWords(attribute)) {
            Add(attribute, option + package + "=ALL-UNNAMED", kFirstWithModules);
        }
    }

    void AddNativeAccess() {
        const char* const attribute = "Enable-Native-Access";
        const std::string value = manifest_.Get(attribute);
        if (!value.empty())
            Add(attribute, "--enable-native-access=" + value, kFirstWithNativeAccess);
    }

  private:
    // A runtime refuses to start with an unknown option.
    void Add(const std::string& attribute, const std::string& option, int first) {
        if (feature_ >= first) {
            facts_.vmParameters.push_back(option);
            return;
        }
        const std::string oldest = std::to_string(first);
        warnings_.push_back(attribute + " of the manifest is omitted, because Java supports " +
                            option + " from version " + oldest + " on; use --min-version " +
                            oldest + " to include it");
    }

    const Manifest& manifest_;
    int feature_;
    JarFacts& facts_;
    std::vector<std::string>& warnings_;
};

}  // namespace

JarFacts ReadJarFacts(const JarFile& jar, const std::string& mainClass,
                      const std::string& minimumVersion, std::vector<std::string>& warnings) {
    const Manifest manifest = ManifestOf(jar, mainClass);
    JarFacts facts;
    facts.mainClass = mainClass.empty() ? manifest.Get("Main-Class") : mainClass;
    if (facts.mainClass.empty()) {
        throw Failure(jar.Path(), "has no Main-Class in its manifest; specify --main-class");
    }
    facts.title = manifest.GetFirst({"Implementation-Title", "Bundle-Name"});
    facts.version = manifest.GetFirst({"Implementation-Version", "Bundle-Version"});
    facts.vendor = manifest.GetFirst({"Implementation-Vendor", "Bundle-Vendor"});
    facts.splashEntry = manifest.Get("SplashScreen-Image");
    const auto mainClassFile = jar.Read(EntryOfClass(facts.mainClass));
    facts.minimumVersion = minimumVersion;
    if (minimumVersion.empty() && mainClassFile) {
        const int feature = JavaFeatureOfClass(*mainClassFile);
        if (feature != 0) facts.minimumVersion = JavaVersionOfFeature(feature);
    }

    Options options(manifest, JavaFeatureOf(facts.minimumVersion), facts, warnings);
    options.AddForPackages("Add-Exports", "--add-exports=");
    options.AddForPackages("Add-Opens", "--add-opens=");
    options.AddNativeAccess();
    if (!manifest.Get("Launcher-Agent-Class").empty()) {
        warnings.push_back(
            "Launcher-Agent-Class of the manifest applies to \"java -jar\" only; use "
            "--vm-parameters \"-javaagent:JAR\" for an agent");
    }
    return facts;
}

}  // namespace tarn::tools
