#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tests/support/wait.h"

namespace tarn::test {

/// The log that the scripted jvm.dll writes. Every operation reads the file again.
class FakeJvmLog {
  public:
    struct Line {
        unsigned long thread = 0;
        std::string text;
    };

    explicit FakeJvmLog(std::wstring file) : file_(std::move(file)) {}

    std::vector<Line> Lines() const;
    std::vector<std::string> Texts() const;

    /// Whether the log contains exactly this line.
    bool Has(std::string_view text) const;
    /// The number of lines that begin with this text.
    std::size_t Count(std::string_view start) const;
    /// The rest of the first line that begins with this text; empty when there is none.
    std::string After(std::string_view start) const;

    /// Waits for a line that begins with this text; fails the test when none appears.
    bool WaitFor(std::string_view start, std::chrono::milliseconds timeLimit = kTimeLimit) const;

    /// The options of JNI_CreateJavaVM in the log's notation (quoted and escaped), without the
    /// final "abort" and "exit".
    std::vector<std::string> Options() const;

    /// The JNI calls and the calls of the VM's functions in order, without those that only check
    /// for a pending exception, whose moment is the caller's choice.
    std::vector<std::string> Calls() const;

    /// The violations of JNI's rules.
    std::vector<std::string> Violations() const;

  private:
    std::wstring file_;
};

}  // namespace tarn::test
