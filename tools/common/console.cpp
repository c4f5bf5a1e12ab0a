#include "tools/common/console.h"

#include <cstdlib>

#include "tools/common/system.h"

namespace tarn::tools {
namespace {

bool AllowsColors() {
    const char* value = std::getenv("NO_COLOR");
    return value == nullptr || *value == '\0';
}

// The escape sequence that selects a style.
const char* SequenceOf(Style style) {
    switch (style) {
        case Style::Bold:
            return "\x1b[1m";
        case Style::Good:
            return "\x1b[32m";
        case Style::Warning:
            return "\x1b[33m";
        case Style::Error:
            return "\x1b[1;31m";
        case Style::Dim:
            return "\x1b[2m";
        case Style::Plain:
            break;
    }
    return "";
}

std::string StyledIf(bool hasColors, Style style, std::string_view text) {
    if (!hasColors || style == Style::Plain) return std::string(text);
    return SequenceOf(style) + std::string(text) + "\x1b[0m";
}

void Write(std::FILE* stream, std::string_view text) {
    std::fwrite(text.data(), 1, text.size(), stream);
}

}  // namespace

Console Console::ForProcess() {
    const Terminals terminals = PrepareTerminals();
    return Console(stdout, stderr, terminals.output, terminals.errors);
}

Console::Console(std::FILE* output, std::FILE* errors, bool outputIsTerminal,
                 bool errorsAreTerminal)
    : output_(output),
      errors_(errors),
      outputHasColors_(outputIsTerminal && AllowsColors()),
      errorsHaveColors_(errorsAreTerminal && AllowsColors()),
      errorsAreTerminal_(errorsAreTerminal) {}

void Console::Print(std::string_view text) const {
    Write(output_, text);
}

void Console::PrintLine(std::string_view text) const {
    Write(output_, text);
    Write(output_, "\n");
}

void Console::PrintError(std::string_view message) const {
    ShowProgress("");
    Write(errors_, StyledIf(errorsHaveColors_, Style::Error, "tarn: error: "));
    Write(errors_, std::string(message) + "\n");
}

void Console::PrintWarning(std::string_view message) const {
    ShowProgress("");
    Write(errors_, StyledIf(errorsHaveColors_, Style::Warning, "tarn: warning: "));
    Write(errors_, std::string(message) + "\n");
}

void Console::PrintNote(std::string_view message) const {
    ShowProgress("");
    Write(errors_, "tarn: " + std::string(message) + "\n");
    std::fflush(errors_);
}

std::string Console::Styled(Style style, std::string_view text) const {
    return StyledIf(outputHasColors_, style, text);
}

void Console::ShowProgress(std::string_view text) const {
    if (!errorsAreTerminal_) return;
    Write(errors_, "\r\x1b[K");
    Write(errors_, text);
    std::fflush(errors_);
}

}  // namespace tarn::tools
