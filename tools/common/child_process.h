#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tarn::tools {

/// How a program that this one started has ended.
struct ProcessResult {
    bool isStarted = false;  // false when there is no such program
    int exitCode = -1;       // -1 when a signal ended it
    std::string output;      // standard output and standard error, as written
};

/// Runs a program to its end with an empty standard input. A name without a folder is looked up
/// along PATH. Arguments are UTF-8. `workingFolder` may be empty.
ProcessResult RunProgram(const std::filesystem::path& program,
                         const std::vector<std::string>& arguments,
                         const std::filesystem::path& workingFolder = {});

/// Runs a command of the system's shell (sh, or cmd.exe on Windows) with the quoted path of a file
/// as its last argument.
ProcessResult RunShellCommand(const std::string& command, const std::filesystem::path& file);

}  // namespace tarn::tools
