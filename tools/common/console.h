#pragma once

#include <cstdio>
#include <string>
#include <string_view>

namespace tarn::tools {

enum class Style { Plain, Bold, Good, Warning, Error, Dim };

/// A command's output: UTF-8 text to standard output; errors, warnings and progress to standard
/// error. Terminals get colours, unless the environment variable NO_COLOR is set, and progress.
class Console {
  public:
    /// For the process's standard streams.
    static Console ForProcess();

    Console(std::FILE* output, std::FILE* errors, bool outputIsTerminal, bool errorsAreTerminal);

    void Print(std::string_view text) const;
    void PrintLine(std::string_view text) const;

    /// "tarn: error: message" and "tarn: warning: message" on standard error.
    void PrintError(std::string_view message) const;
    void PrintWarning(std::string_view message) const;

    /// "tarn: message" on standard error, for what takes so long that it needs a word even where
    /// standard error is not a terminal.
    void PrintNote(std::string_view message) const;

    /// The text in a style, for Print; unchanged when standard output is not a terminal.
    std::string Styled(Style style, std::string_view text) const;

    /// Replaces the progress line on standard error, when that is a terminal. An empty text erases
    /// the line.
    void ShowProgress(std::string_view text) const;

  private:
    std::FILE* output_;
    std::FILE* errors_;
    bool outputHasColors_;
    bool errorsHaveColors_;
    bool errorsAreTerminal_;
};

}  // namespace tarn::tools
