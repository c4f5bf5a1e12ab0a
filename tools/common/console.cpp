#include "tools/common/console.h"

#include <cstdlib>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>

#include "base/windows.h"
#else
#include <unistd.h>
#endif

namespace tarn::tools {
namespace {

bool WantsColors() {
    const char* value = std::getenv("NO_COLOR");
    return value == nullptr || *value == '\0';
}

#ifdef _WIN32
bool PrepareStream(std::FILE* stream, DWORD standardHandle) {
    // The text ends its lines itself, the same bytes on every platform.
    _setmode(_fileno(stream), _O_BINARY);
    const HANDLE handle = GetStdHandle(standardHandle);
    DWORD mode = 0;
    if (!GetConsoleMode(handle, &mode)) return false;
    return SetConsoleMode(handle, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != FALSE;
}
#endif

const char* CodeOf(Style style) {
    switch (style) {
        case Style::kBold:
            return "\x1b[1m";
        case Style::kGood:
            return "\x1b[32m";
        case Style::kWarning:
            return "\x1b[33m";
        case Style::kError:
            return "\x1b[1;31m";
        case Style::kDim:
            return "\x1b[2m";
        case Style::kPlain:
            break;
    }
    return "";
}

std::string StyledIf(bool hasColors, Style style, std::string_view text) {
    if (!hasColors || style == Style::kPlain) return std::string(text);
    return CodeOf(style) + std::string(text) + "\x1b[0m";
}

void Write(std::FILE* stream, std::string_view text) {
    std::fwrite(text.data(), 1, text.size(), stream);
}

}  // namespace

Console Console::ForProcess() {
#ifdef _WIN32
    const bool outputIsTerminal = PrepareStream(stdout, STD_OUTPUT_HANDLE);
    const bool errorsAreTerminal = PrepareStream(stderr, STD_ERROR_HANDLE);
    if (outputIsTerminal || errorsAreTerminal) SetConsoleOutputCP(CP_UTF8);
    return Console(stdout, stderr, outputIsTerminal, errorsAreTerminal);
#else
    return Console(stdout, stderr, isatty(STDOUT_FILENO) != 0, isatty(STDERR_FILENO) != 0);
#endif
}

Console::Console(std::FILE* output, std::FILE* errors, bool outputIsTerminal,
                 bool errorsAreTerminal)
    : output_(output),
      errors_(errors),
      outputHasColors_(outputIsTerminal && WantsColors()),
      errorsHaveColors_(errorsAreTerminal && WantsColors()),
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
    Write(errors_, StyledIf(errorsHaveColors_, Style::kError, "tarn: error: "));
    Write(errors_, std::string(message) + "\n");
}

void Console::PrintWarning(std::string_view message) const {
    ShowProgress("");
    Write(errors_, StyledIf(errorsHaveColors_, Style::kWarning, "tarn: warning: "));
    Write(errors_, std::string(message) + "\n");
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
