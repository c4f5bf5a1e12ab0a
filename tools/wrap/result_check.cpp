#include "tools/wrap/result_check.h"

#include "tools/check/rules.h"
#include "tools/common/failure.h"
#include "tools/common/text_encoding.h"

namespace tarn::tools {
namespace {

void ReplaceEach(std::string& text, const std::string& from, const std::string& to) {
    for (std::size_t at = text.find(from); at != std::string::npos;
         at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
}

}  // namespace

void CheckResult(const CheckedSettings& settings, const std::string& file,
                 const std::filesystem::path& folder, const std::vector<std::string>& allowed) {
    std::size_t count = 0;
    std::string problems;
    for (const Finding& finding : WithoutAllowed(CheckSettings(settings), allowed)) {
        if (finding.severity == Severity::Note) continue;
        ++count;
        problems += "\n    " + std::string(NameOf(finding.severity)) + " \"" + finding.id +
                    "\": " + finding.message;
        if (!finding.advice.empty()) problems += "\n        " + finding.advice;
    }
    if (count == 0) return;
    ReplaceEach(problems, Utf8OfPath(settings.folder()), Utf8OfPath(folder));
    throw Failure(
        file + ": nothing was created, because tarn check has " + std::to_string(count) +
        (count == 1 ? " finding:" : " findings:") + problems +
        "\nChange the options that cause this, or accept a finding with --allow ID, where "
        "ID is the word in quotes.");
}

CheckedSettings EmbeddedSettingsForCheck(const std::string& text,
                                         const std::filesystem::path& executable) {
    std::filesystem::path file = executable;
    // The encoding of a file is no concern of a text that is not in one.
    return {file.replace_extension(".ini"), {IniEncoding::Utf16, WideOf(text), false}, true};
}

}  // namespace tarn::tools
