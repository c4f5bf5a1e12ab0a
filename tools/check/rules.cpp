#include "tools/check/rules.h"

namespace tarn::tools {

std::vector<Finding> CheckSettings(const CheckedSettings& settings) {
    Findings findings;
    for (const auto& check : {CheckEncoding, CheckStructure, CheckAdditiveSections, CheckKeywords,
                              CheckQuotes, CheckVersions, CheckApplication, CheckJvmOptions,
                              CheckModuleOptions, CheckJvmFiles, CheckMemorySizes, CheckVmFlags,
                              CheckClassPath, CheckCurrentDirectory, CheckFiles, CheckFastStart}) {
        check(settings, findings);
    }
    return findings.Sorted();
}

}  // namespace tarn::tools
