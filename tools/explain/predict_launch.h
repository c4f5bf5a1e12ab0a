#pragma once

#include <string>
#include <string_view>

#include "tools/explain/launch_report.h"
#include "tools/explain/program_file.h"

namespace tarn::tools {

/// Goes through a launch of the program up to where the JVM would be created, and tells what it
/// came to. `argumentText` is what would stand behind the program's name on its command line. No
/// JVM is created and no window, file, registry value or shared object is made; this process's own
/// environment, directory and locale become the launch's, and the runtime's libraries are loaded.
LaunchReport PredictLaunch(const ProgramFile& program, std::wstring_view argumentText);

}  // namespace tarn::tools
