#pragma once

#include <cstdio>
#include <string>
#include <string_view>

namespace tarn::tools {

enum class Style { kPlain, kBold, kGood, kWarning, kError, kDim };

/// Where a command writes: UTF-8 text to standard output, errors and progress to standard error.
/// Colours and progress lines only where a person reads, and no colours at all when the environment
/// has NO_COLOR.
class Console {
  public:
    /// For the process's own streams. On Windows it makes the console show UTF-8 and colours.
    static Console ForProcess();

    Console(std::FILE* output, std::FILE* errors, bool outputIsTerminal, bool errorsAreTerminal);

    void Print(std::string_view text) const;
    void PrintLine(std::string_view text) const;

    /// "tarn: error: message" and "tarn: warning: message" on standard error.
    void PrintError(std::string_view message) const;
    void PrintWarning(std::string_view message) const;

    /// The text in a style, for Print; unchanged when standard output is no terminal.
    std::string Styled(Style style, std::string_view text) const;

    /// Replaces the progress line on standard error; nothing when that is no terminal. An empty
    /// text takes the line away.
    void ShowProgress(std::string_view text) const;

  private:
    std::FILE* output_;
    std::FILE* errors_;
    bool outputHasColors_;
    bool errorsHaveColors_;
    bool errorsAreTerminal_;
};

}  // namespace tarn::tools
