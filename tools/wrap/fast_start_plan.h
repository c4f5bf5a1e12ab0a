#pragma once

#include <string>
#include <vector>

#include "tools/wrap/class_path_files.h"
#include "tools/wrap/java_start.h"
#include "tools/wrap/wrap.h"

namespace tarn::tools {

/// The value of "Fast Start" for an application with these files. Throws Failure, with the reason,
/// for an application that would never have an archive, or for which one is not safe.
std::string PlanFastStart(const WrapRequest& request, const JavaStart& start,
                          const std::vector<ClassPathFile>& files);

}  // namespace tarn::tools
