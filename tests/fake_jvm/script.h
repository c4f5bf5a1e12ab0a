#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace fake_jvm {

/// The behaviour of a scripted function for one call.
enum class Outcome { Normal, Fail, Throw };

/// The file that FAKE_JVM_SCRIPT names (UTF-8; see tests/README.md for its language). Read once.
class Script {
  public:
    static Script& Get();

    /// The value of the last `name = value` line, or the default.
    std::string Value(std::string_view name, std::string_view otherwise = {}) const;
    int Number(std::string_view name, int otherwise) const;
    bool Has(std::string_view name) const;

    /// The values of all `name = value` lines, in order.
    std::vector<std::string> Values(std::string_view name) const;

    /// Whether the script contains exactly this line.
    bool HasLine(std::string_view line) const;

    /// Counts this call of the function and returns its behaviour.
    Outcome NextCall(std::string_view function);

  private:
    Script();

    struct Line {
        std::string text;
        std::string name;  // of a `name = value` line
        std::string value;
    };
    struct Counter {
        std::string function;
        int calls = 0;
    };
    std::vector<Line> lines_;
    std::vector<Counter> counters_;
};

/// Replaces `\n`, `\r`, `\t` and `\\` by the characters that they denote.
std::string Unescape(std::string_view text);

}  // namespace fake_jvm
