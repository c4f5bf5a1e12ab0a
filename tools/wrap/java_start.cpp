#include "tools/wrap/java_start.h"

#include <algorithm>
#include <set>

#include "tools/common/text_encoding.h"
#include "tools/java/java_version.h"
#include "tools/wrap/manifest_options.h"
#include "tools/wrap/module_plan.h"

namespace tarn::tools {
namespace {

constexpr int kFirstWithModules = 9;
constexpr int kFirstWithNativeAccess = 17;

// The launcher uses a shipped runtime of any version.
void WarnAboutOldRuntime(const WrapRequest& request, const std::string& minimumVersion,
                         std::vector<std::string>& warnings) {
    const std::string version = ReadJavaVersion(request.runtime);
    const int feature = JavaFeatureOf(version);
    if (feature != 0 && feature < JavaFeatureOf(minimumVersion)) {
        warnings.push_back(Utf8OfPath(request.runtime) + ": is Java " + version +
                           ", but the application requires " + minimumVersion);
    }
}

}  // namespace

JavaStart PlanStart(const WrapRequest& request, const JarFacts& facts, ApplicationJars& jars,
                    std::vector<std::string>& warnings) {
    JavaStart start;
    start.mainClass = facts.mainClass;
    std::set<std::string> runtimeModules;
    int shipped = 0;
    if (!request.runtime.empty()) {
        runtimeModules = ReadJavaModules(request.runtime);
        shipped = JavaFeatureOf(ReadJavaVersion(request.runtime));
    }
    ModulePlan modules = PlanModules(jars, request, facts.mainClass, runtimeModules, warnings);
    int oldest = OldestJavaOf(jars);
    if (!modules.vmParameters.empty()) oldest = std::max(oldest, kFirstWithModules);
    start.minimumVersion = !request.minimumVersion.empty() ? request.minimumVersion
                           : oldest != 0                   ? JavaVersionOfFeature(oldest)
                                                           : std::string();
    if (!request.runtime.empty()) WarnAboutOldRuntime(request, start.minimumVersion, warnings);
    const PossibleRuntimes runtimes{shipped != 0 ? shipped : JavaFeatureOf(start.minimumVersion),
                                    shipped != 0};
    start.vmParameters = ManifestOptions(facts.manifest, runtimes, modules.mainModule, warnings);
    if (runtimes.oldest >= kFirstWithNativeAccess) {
        for (const std::string& module : modules.nativeModules) {
            start.vmParameters.push_back("--enable-native-access=" + module);
        }
    }
    start.vmParameters.insert(start.vmParameters.end(), modules.vmParameters.begin(),
                              modules.vmParameters.end());
    return start;
}

}  // namespace tarn::tools
