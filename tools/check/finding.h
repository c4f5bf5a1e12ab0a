#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tarn::tools {

enum class Severity {
    Note,     ///< works, but deserves attention
    Warning,  ///< does something other than intended, or only on some machines
    Error,    ///< the launch fails, or the setting is lost
};

/// "note", "warning", "error".
std::string_view NameOf(Severity severity);

/// One thing that a settings file should say differently.
struct Finding {
    Severity severity = Severity::Note;
    /// What kind of finding it is, for programs: words with "-" between them.
    std::string id;
    /// Counted from 1; 0 when it is about the whole file, or about a line that is not there.
    std::size_t line = 0;
    std::string message;
    /// What to write instead, or to do; may be empty.
    std::string advice;
};

/// Gathers what the rules find.
class Findings {
  public:
    void Error(std::string id, std::size_t line, std::string message, std::string advice = {});
    void Warning(std::string id, std::size_t line, std::string message, std::string advice = {});
    void Note(std::string id, std::size_t line, std::string message, std::string advice = {});

    /// In the order of their lines; those about the whole file come first.
    std::vector<Finding> Sorted() const;

  private:
    std::vector<Finding> all_;
};

std::size_t CountOf(const std::vector<Finding>& findings, Severity severity);

}  // namespace tarn::tools
