#include "tools/explain/explain_command.h"

#include <memory>

#include "tools/common/failure.h"
#include "tools/common/text_encoding.h"

#ifdef _WIN32
#include "tools/explain/predict_launch.h"
#include "tools/explain/raw_arguments.h"
#include "tools/explain/report_json.h"
#include "tools/explain/report_text.h"
#endif

namespace tarn::tools {
namespace {

constexpr char kFooter[] =
    "Examples:\n"
    "  tarn explain C:\\Apps\\sample.exe\n"
    "  tarn explain sample.exe --json > report.json\n"
    "  tarn explain sample.exe -- -nosplash \"C:\\My Files\\letter.txt\"\n"
    "What stands behind -- is the rest of the launch's command line, taken as it is typed.\n"
    "No JVM is created and nothing is written. The runtime's jvm.dll is loaded to be asked for\n"
    "its default stack size. Run it as the user, and in the folder, of the launch in question.";

struct Request {
    std::string program;
    std::vector<std::string> arguments;
    bool json = false;
};

#ifdef _WIN32
std::wstring_view ArgumentText(const Request& request) {
    const std::optional<std::wstring_view> raw = RawArguments(GetCommandLineW());
    if (!raw && !request.arguments.empty()) {
        throw Failure("\"" + request.arguments.front() +
                      "\": arguments of the launch stand behind --, as in"
                      " tarn explain NAME.exe -- ARGS");
    }
    return raw.value_or(std::wstring_view());
}

void Explain(const Request& request, const Console& console) {
    const std::wstring_view arguments = ArgumentText(request);
    const ProgramFile program(PathOf(request.program));
    if (!program.IsLauncher()) {
        console.PrintWarning(request.program +
                             ": has none of the launcher's texts; is it a launcher?");
    }
    const LaunchReport report = PredictLaunch(program, arguments);
    console.Print(request.json ? ReportJson(report) : ReportText(report, console));
}
#else
void Explain(const Request& request, const Console& /*console*/) {
    throw Failure(PathOf(request.program),
                  "a launch can only be explained on the Windows machine that it happens on; run"
                  " tarn.exe explain there");
}
#endif

}  // namespace

void AddExplainCommand(CLI::App& app, const Console& console, int& exitCode) {
    CLI::App* const command =
        app.add_subcommand("explain", "Tells what a launch would do here and now, and why");
    command->footer(kFooter);
    const auto request = std::make_shared<Request>();
    command->add_option("NAME.exe", request->program, "The application's executable")->required();
    command->add_option("ARGS", request->arguments, "Arguments of the launch, behind --");
    command->add_flag("--json", request->json, "Report for programs (docs/user/explain.md)");
    command->callback([request, &console, &exitCode] {
        Explain(*request, console);
        exitCode = kSuccess;
    });
}

}  // namespace tarn::tools
