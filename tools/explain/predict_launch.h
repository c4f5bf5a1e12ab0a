#pragma once

#include <string>
#include <string_view>

#include "tools/explain/launch_report.h"
#include "tools/explain/program_file.h"

namespace tarn::tools {

/// Runs the steps of a launch up to the creation of the JVM and reports their results.
/// `argumentText` is the command line after the program's name. Creates no JVM, window, file,
/// registry value or shared object. Changes this process's environment, current directory and
/// locale to those of the launch, and loads the runtime's libraries.
LaunchReport PredictLaunch(const ProgramFile& program, std::wstring_view argumentText);

}  // namespace tarn::tools
