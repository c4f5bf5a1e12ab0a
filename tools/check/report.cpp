#include "tools/check/report.h"

#include <nlohmann/json.hpp>

namespace tarn::tools {
namespace {

constexpr int kSchema = 1;

Style StyleOf(Severity severity) {
    return severity == Severity::Error     ? Style::Error
           : severity == Severity::Warning ? Style::Warning
                                           : Style::Dim;
}

std::string Counted(std::size_t count, const char* what) {
    return std::to_string(count) + ' ' + what + (count == 1 ? "" : "s");
}

}  // namespace

void PrintReport(const Console& console, const std::string& file,
                 const std::vector<Finding>& findings) {
    for (const Finding& finding : findings) {
        std::string place = file;
        if (finding.line != 0) place += ':' + std::to_string(finding.line);
        console.PrintLine(
            console.Styled(Style::Bold, place + ':') + ' ' +
            console.Styled(StyleOf(finding.severity), std::string(NameOf(finding.severity)) + ':') +
            ' ' + finding.message);
        if (!finding.advice.empty()) console.PrintLine("    " + finding.advice);
    }
    if (findings.empty()) {
        console.PrintLine(file + ": " + console.Styled(Style::Good, "no findings"));
    } else {
        console.PrintLine(file + ": " + Counted(CountOf(findings, Severity::Error), "error") +
                          ", " + Counted(CountOf(findings, Severity::Warning), "warning") + ", " +
                          Counted(CountOf(findings, Severity::Note), "note"));
    }
}

std::string JsonReport(const std::string& file, const std::vector<Finding>& findings) {
    nlohmann::ordered_json report;
    report["schema"] = kSchema;
    report["file"] = file;
    report["errors"] = CountOf(findings, Severity::Error);
    report["warnings"] = CountOf(findings, Severity::Warning);
    report["notes"] = CountOf(findings, Severity::Note);
    report["findings"] = nlohmann::ordered_json::array();
    for (const Finding& finding : findings) {
        report["findings"].push_back({{"line", finding.line},
                                      {"severity", NameOf(finding.severity)},
                                      {"id", finding.id},
                                      {"message", finding.message},
                                      {"advice", finding.advice}});
    }
    return report.dump(2) + '\n';
}

}  // namespace tarn::tools
