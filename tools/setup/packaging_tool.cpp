#include "tools/setup/packaging_tool.h"

#include <algorithm>
#include <cstdlib>

#include "tools/common/child_process.h"
#include "tools/common/failure.h"
#include "tools/common/text_encoding.h"

namespace tarn::tools {
namespace {

constexpr std::size_t kShownLines = 12;

std::string InstallAdvice(const PackagingTool& tool) {
#ifdef _WIN32
    return "install it from " + tool.website + " and add its folder to PATH";
#else
    return "install it, for example with \"apt-get install " + tool.package +
           "\" on Debian or Ubuntu, or from " + tool.website;
#endif
}

}  // namespace

PackagingTool MakensisTool() {
    PackagingTool tool = {"makensis", "nsis", "https://nsis.sourceforge.io", {}};
#ifdef _WIN32
    // Its setup program does not change PATH.
    if (const wchar_t* const folder = _wgetenv(L"ProgramFiles(x86)")) {
        tool.folders.push_back(std::filesystem::path(folder) / "NSIS");
    }
#endif
    return tool;
}

PackagingTool WixlTool() {
    return {"wixl", "wixl", "https://gitlab.gnome.org/GNOME/msitools", {}};
}

PackagingTool MsibuildTool() {
    return {"msibuild", "msitools", "https://gitlab.gnome.org/GNOME/msitools", {}};
}

std::string RunTool(const PackagingTool& tool, const std::vector<std::string>& arguments,
                    const std::filesystem::path& workingFolder, const std::string& what) {
    ProcessResult result = RunProgram(tool.name, arguments, workingFolder);
    for (const std::filesystem::path& folder : tool.folders) {
        if (!result.isStarted) result = RunProgram(folder / tool.name, arguments, workingFolder);
    }
    if (!result.isStarted) {
        throw Failure(tool.name + ", which makes " + what + ", was not found; " +
                      InstallAdvice(tool));
    }
    if (result.exitCode != 0) {
        throw Failure(tool.name + " could not make " + what + ":" + LastLines(result.output));
    }
    return result.output;
}

void SignFile(const std::string& command, const std::filesystem::path& file) {
    const ProcessResult result = RunShellCommand(command, file);
    if (result.isStarted && result.exitCode == 0) return;
    throw Failure("--sign " + command + ": the command failed for " + Utf8OfPath(file.filename()) +
                  " (exit code " + std::to_string(result.exitCode) + ")" +
                  LastLines(result.output));
}

std::string LastLines(const std::string& output) {
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < output.size();) {
        const std::size_t end = output.find('\n', at);
        std::string line = output.substr(at, end == std::string::npos ? end : end - at);
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (!line.empty()) lines.push_back(std::move(line));
        at = end == std::string::npos ? output.size() : end + 1;
    }
    std::string text;
    const std::size_t first = lines.size() - std::min(lines.size(), kShownLines);
    for (std::size_t at = first; at < lines.size(); ++at) text += "\n    " + lines[at];
    return text;
}

}  // namespace tarn::tools
