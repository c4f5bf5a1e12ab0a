#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace fake_jvm {

/// What a scripted function does this time.
enum class Outcome { Normal, Fail, Throw };

/// The file that FAKE_JVM_SCRIPT names (UTF-8); tests/README.md tells its language. Read once.
class Script {
  public:
    static Script& Get();

    /// The value of the last `name = value` line, or the default.
    std::string Value(std::string_view name, std::string_view otherwise = {}) const;
    int Number(std::string_view name, int otherwise) const;
    bool Has(std::string_view name) const;

    /// The values of all `name = value` lines, in order.
    std::vector<std::string> Values(std::string_view name) const;

    /// Whether there is a line of exactly these words.
    bool HasLine(std::string_view line) const;

    /// Counts this call of the function and says what it is to do.
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

/// The text with `\n`, `\r`, `\t` and `\\` replaced by what they stand for.
std::string Unescape(std::string_view text);

}  // namespace fake_jvm
