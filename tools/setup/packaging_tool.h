#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tarn::tools {

/// A program that makes setup programs, which the user installs.
struct PackagingTool {
    std::string name;                            // "makensis"
    std::string package;                         // of Debian and Ubuntu: "nsis"
    std::string website;                         // for other systems
    std::vector<std::filesystem::path> folders;  // where to look after PATH
};

/// `makensis`, `wixl`, and `msibuild`, which changes what `wixl` has made.
PackagingTool MakensisTool();
PackagingTool WixlTool();
PackagingTool MsibuildTool();

/// Runs a tool and returns its output. Throws Failure when it is not installed, naming the package,
/// and when it fails, with the last lines of its output; `what` is what it should have made.
std::string RunTool(const PackagingTool& tool, const std::vector<std::string>& arguments,
                    const std::filesystem::path& workingFolder, const std::string& what);

/// Signs a file by the user's command, which changes it in place. Throws Failure with the output of
/// the command when that fails.
void SignFile(const std::string& command, const std::filesystem::path& file);

/// The end of a tool's output for a message: its last lines, indented.
std::string LastLines(const std::string& output);

}  // namespace tarn::tools
