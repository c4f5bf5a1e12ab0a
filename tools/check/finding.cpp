#include "tools/check/finding.h"

#include <algorithm>

namespace tarn::tools {

std::string_view NameOf(Severity severity) {
    switch (severity) {
        case Severity::Error:
            return "error";
        case Severity::Warning:
            return "warning";
        case Severity::Note:
            break;
    }
    return "note";
}

void Findings::Error(std::string id, std::size_t line, std::string message, std::string advice) {
    all_.push_back({Severity::Error, std::move(id), line, std::move(message), std::move(advice)});
}

void Findings::Warning(std::string id, std::size_t line, std::string message, std::string advice) {
    all_.push_back({Severity::Warning, std::move(id), line, std::move(message), std::move(advice)});
}

void Findings::Note(std::string id, std::size_t line, std::string message, std::string advice) {
    all_.push_back({Severity::Note, std::move(id), line, std::move(message), std::move(advice)});
}

std::vector<Finding> Findings::Sorted() const {
    std::vector<Finding> sorted = all_;
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const Finding& a, const Finding& b) { return a.line < b.line; });
    return sorted;
}

std::vector<Finding> WithoutAllowed(std::vector<Finding> findings,
                                    const std::vector<std::string>& allowed) {
    std::erase_if(findings, [&](const Finding& finding) {
        return std::find(allowed.begin(), allowed.end(), finding.id) != allowed.end();
    });
    return findings;
}

std::size_t CountOf(const std::vector<Finding>& findings, Severity severity) {
    return static_cast<std::size_t>(
        std::count_if(findings.begin(), findings.end(),
                      [&](const Finding& finding) { return finding.severity == severity; }));
}

}  // namespace tarn::tools
