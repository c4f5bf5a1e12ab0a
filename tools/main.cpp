#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <string>
#include <vector>

#include "tools/check/check_command.h"
#include "tools/common/console.h"
#include "tools/common/failure.h"
#include "tools/common/text_encoding.h"
#include "tools/explain/explain_command.h"
#include "tools/setup/setup_command.h"
#include "tools/stamp/stamp_command.h"
#include "tools/wrap/wrap_command.h"

namespace tarn::tools {
namespace {

constexpr char kDescription[] =
    "Builds Windows executables for Java applications and diagnoses their launch.";
constexpr char kExitCodes[] =
    "Exit codes: 0 success, 1 warnings with --strict, 2 failure or wrong arguments.";

void AddCommands(CLI::App& app, const Console& console, int& exitCode) {
    AddCheckCommand(app, console, exitCode);
    AddExplainCommand(app, console, exitCode);
    AddSetupCommand(app, console, exitCode);
    AddStampCommand(app, console, exitCode);
    AddWrapCommand(app, console, exitCode);
}

// Commands report their exit code through `exitCode`.
int Run(std::vector<std::string> arguments, const Console& console) {
    CLI::App app(kDescription, "tarn");
    app.footer(kExitCodes);
    app.set_version_flag("--version", "tarn " TARN_VERSION);
    app.require_subcommand(1);
    // The same syntax on every platform: "/x" is a path on Windows, too.
    app.allow_windows_style_options(false);

    int exitCode = kSuccess;
    AddCommands(app, console, exitCode);
    // The parser takes them in reverse order.
    std::reverse(arguments.begin(), arguments.end());
    try {
        app.parse(arguments);
    } catch (const CLI::Success& request) {
        return app.exit(request);
    } catch (const CLI::ParseError& error) {
        console.PrintError(std::string(error.what()) + "; see tarn --help");
        return kFailed;
    } catch (const std::exception& failure) {
        console.PrintError(failure.what());
        return kFailed;
    }
    return exitCode;
}

}  // namespace
}  // namespace tarn::tools

#ifdef _WIN32
int wmain(int count, wchar_t** words) {
    std::vector<std::string> arguments;
    for (int at = 1; at < count; ++at) arguments.push_back(tarn::tools::Utf8Of(words[at]));
    return tarn::tools::Run(std::move(arguments), tarn::tools::Console::ForProcess());
}
#else
// NOLINTNEXTLINE(bugprone-exception-escape): without memory no message is possible
int main(int count, char** words) {
    std::vector<std::string> arguments(words + 1, words + count);
    return tarn::tools::Run(std::move(arguments), tarn::tools::Console::ForProcess());
}
#endif
