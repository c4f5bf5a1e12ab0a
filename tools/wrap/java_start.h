#pragma once

#include <string>
#include <vector>

#include "tools/wrap/application_jars.h"
#include "tools/wrap/jar_facts.h"
#include "tools/wrap/wrap.h"

namespace tarn::tools {

/// How Java starts an application. Texts are UTF-8.
struct JavaStart {
    std::string mainClass;
    std::string minimumVersion;             // "1.8", "17"; empty when unknown
    std::vector<std::string> vmParameters;  // before those of the request
};

/// Decides it from the contents of the jars, whose targets and placements it sets. Throws Failure
/// for an application that cannot start.
JavaStart PlanStart(const WrapRequest& request, const JarFacts& facts, ApplicationJars& jars,
                    std::vector<std::string>& warnings);

}  // namespace tarn::tools
