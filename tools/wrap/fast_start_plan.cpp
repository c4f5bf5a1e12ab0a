#include "tools/wrap/fast_start_plan.h"

#include <algorithm>

#include "jvm/fast_start.h"
#include "jvm/vm_parameters.h"
#include "tools/common/failure.h"
#include "tools/common/text_encoding.h"
#include "tools/java/java_version.h"
#include "tools/wrap/application_settings.h"

namespace tarn::tools {
namespace {

constexpr int kFirstToWrite = 21;

[[noreturn]] void Refuse(const std::string& reason) {
    throw Failure("--fast-start: " + reason);
}

void CheckRuntimeVersion(const WrapRequest& request) {
    if (request.runtime.empty()) return;  // the launcher reads the version of the one it finds
    const std::string version = ReadJavaVersion(request.runtime);
    if (JavaFeatureOf(version) >= kFirstToWrite) return;
    const std::string runtime = Utf8OfPath(request.runtime);
    if (version.empty()) Refuse(runtime + " contains no file release that states its version");
    Refuse(
        runtime + " is Java " + version +
        ": --fast-start needs Java 21 or newer, because older ones cannot write an archive at the "
        "end of a run, or do not start at all when they cannot");
}

void CheckOptions(const std::vector<std::string>& vmParameters) {
    for (const std::string& parameters : vmParameters) {
        for (const std::wstring& token : SplitVmParameters(WideOf(parameters))) {
            const std::string option = Utf8Of(RemoveQuotes(token));
            if (!RulesOutArchive(option)) continue;
            Refuse("with " + option +
                   " Java writes no archive, or another one; use one of the two");
        }
    }
}

}  // namespace

std::string PlanFastStart(const WrapRequest& request, const JavaStart& start,
                          const std::vector<ClassPathFile>& files) {
    CheckRuntimeVersion(request);
    CheckOptions(request.vmParameters);
    CheckOptions(start.vmParameters);
    if (request.endsWith == EndsWith::Main) {
        Refuse(
            "Java writes the archive when the last thread ends or on System.exit, which "
            "--ends-with main does not wait for");
    }
    if (request.manifestChanges.requiresAdministrator) {
        Refuse(
            "with --admin, a program without these rights could replace the archive, which is in "
            "the user's own folder, and with it the code that runs as administrator");
    }
    std::string value = LocalFolderOf(request);
    value += value.substr(value.find('\\'));
    for (const ClassPathFile& file : files) {
        if (file.isFolder) {
            Refuse(file.target +
                   " is a folder of classes, which Java does not archive; pack it into a jar");
        }
        // The launcher watches the class path by itself.
        if (file.placement != Placement::ModulePath) continue;
        std::string target = file.target;
        std::replace(target.begin(), target.end(), '/', '\\');
        value += ';' + target;
    }
    return value;
}

}  // namespace tarn::tools
