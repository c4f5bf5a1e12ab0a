#include "tools/explain/explain_command.h"

#include <memory>

#include "tools/common/failure.h"

namespace tarn::tools {
namespace {

constexpr char kFooter[] =
    "Examples:\n"
    "  tarn explain C:\\Apps\\sample.exe\n"
    "  tarn explain sample.exe --json > report.json\n"
    "  tarn explain sample.exe -- -nosplash \"C:\\My Files\\letter.txt\"\n"
    "Everything after -- is the rest of the launch's command line, taken verbatim.\n"
    "No JVM is created and nothing is written. The runtime's jvm.dll is loaded to query "
    "its\ndefault stack size. Run the command as the user and in the directory of the launch.";

}  // namespace

void AddExplainCommand(CLI::App& app, const Console& console, int& exitCode) {
    CLI::App* const command =
        app.add_subcommand("explain", "Explains what a launch would do on this machine, and why");
    command->footer(kFooter);
    const auto request = std::make_shared<ExplainRequest>();
    command->add_option("NAME.exe", request->program, "The application's executable")->required();
    command->add_option("ARGS", request->arguments, "Arguments of the launch, after --");
    command->add_flag("--json", request->json, "Print the report as JSON (docs/user/explain.md)");
    command->callback([request, &console, &exitCode] {
        Explain(*request, console);
        exitCode = kSuccess;
    });
}

}  // namespace tarn::tools
