#pragma once

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

namespace tarn::tools {

/// How a program that this one started has ended.
struct ProcessResult {
    bool isStarted = false;   // false when there is no such program
    int exitCode = -1;        // -1 when a signal ended it
    bool isTimedOut = false;  // this program ended it after its time limit
    std::string output;       // standard output and standard error, as written
};

/// The first program of this name in the absolute folders of PATH; empty if there is none. A name
/// with a folder is not searched. On Windows ".exe" is added to a name without extension. The
/// current folder, which Windows searches first, and the relative entries of PATH are skipped: a
/// project can contain files of any name.
std::filesystem::path FindProgram(const std::filesystem::path& name);

/// Runs a program, found by `FindProgram`, to its end with an empty standard input. Arguments are
/// UTF-8. `workingFolder` may be empty.
ProcessResult RunProgram(const std::filesystem::path& program,
                         const std::vector<std::string>& arguments,
                         const std::filesystem::path& workingFolder = {});

/// The same without keeping the output, so that programs which it starts and which outlive it do
/// not matter. Ends the program when it has not ended after the time limit, but not programs that
/// it has started.
ProcessResult RunSilently(const std::filesystem::path& program,
                          const std::vector<std::string>& arguments,
                          const std::filesystem::path& workingFolder,
                          std::chrono::milliseconds timeLimit);

/// Runs a command of the system's shell (sh, or cmd.exe on Windows) with the quoted path of a file
/// as its last argument.
ProcessResult RunShellCommand(const std::string& command, const std::filesystem::path& file);

}  // namespace tarn::tools
