#pragma once

#include <set>
#include <string>
#include <vector>

#include "tools/wrap/application_jars.h"
#include "tools/wrap/wrap.h"

namespace tarn::tools {

/// How Java finds the application's modules.
struct ModulePlan {
    std::string mainModule;                 // empty when the main class is on the class path
    std::set<std::string> nativeModules;    // modules of JavaFX that load native libraries
    std::vector<std::string> vmParameters;  // as "Virtual Machine Parameters" contains them
};

/// Decides which jars are modules for Java, and sets their targets and placements:
/// - JavaFX is always on the module path: Java refuses a main class that extends
///   javafx.application.Application otherwise.
/// - The application's jar is started as a module when its module-info.class names the main class,
///   and all modules that it requires are there.
/// Everything else stays on the class path. `runtimeModules` are those of the runtime that is
/// shipped, empty when unknown. Throws Failure for an application that cannot start.
ModulePlan PlanModules(ApplicationJars& jars, const WrapRequest& request,
                       const std::string& mainClass, const std::set<std::string>& runtimeModules,
                       std::vector<std::string>& warnings);

}  // namespace tarn::tools
