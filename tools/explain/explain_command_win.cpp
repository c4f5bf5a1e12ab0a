#include "base/windows.h"
#include "tools/common/failure.h"
#include "tools/common/text_encoding.h"
#include "tools/explain/explain_command.h"
#include "tools/explain/predict_launch.h"
#include "tools/explain/raw_arguments.h"
#include "tools/explain/report_json.h"
#include "tools/explain/report_text.h"

namespace tarn::tools {
namespace {

std::wstring_view ArgumentText(const ExplainRequest& request) {
    const std::optional<std::wstring_view> raw = RawArguments(GetCommandLineW());
    if (!raw && !request.arguments.empty()) {
        throw Failure("\"" + request.arguments.front() +
                      "\": arguments of the launch follow \"--\", as in"
                      " tarn explain NAME.exe -- ARGS");
    }
    return raw.value_or(std::wstring_view());
}

}  // namespace

void Explain(const ExplainRequest& request, const Console& console) {
    const std::wstring_view arguments = ArgumentText(request);
    const ProgramFile program(PathOf(request.program));
    if (!program.IsLauncher()) {
        console.PrintWarning(request.program +
                             ": lacks the launcher's string table; is it a launcher?");
    }
    const LaunchReport report = PredictLaunch(program, arguments);
    console.Print(request.json ? ReportJson(report) : ReportText(report, console));
}

}  // namespace tarn::tools
