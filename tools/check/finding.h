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

/// One problem of a settings file.
struct Finding {
    Severity severity = Severity::Note;
    /// The kind of finding, for programs: a published name such as "no-main-class".
    std::string id;
    /// From 1; 0 for the whole file or a missing line.
    std::size_t line = 0;
    std::string message;
    /// The remedy; may be empty.
    std::string advice;
};

/// Collects the findings of the rules.
class Findings {
  public:
    void Error(std::string id, std::size_t line, std::string message, std::string advice = {});
    void Warning(std::string id, std::size_t line, std::string message, std::string advice = {});
    void Note(std::string id, std::size_t line, std::string message, std::string advice = {});

    /// Sorted by line; findings about the whole file come first.
    std::vector<Finding> Sorted() const;

  private:
    std::vector<Finding> all_;
};

/// The findings except those whose id is in `allowed`.
std::vector<Finding> WithoutAllowed(std::vector<Finding> findings,
                                    const std::vector<std::string>& allowed);

std::size_t CountOf(const std::vector<Finding>& findings, Severity severity);

}  // namespace tarn::tools
