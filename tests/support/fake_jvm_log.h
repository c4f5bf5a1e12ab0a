#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tests/support/wait.h"

namespace tarn::test {

/// The log that the scripted jvm.dll writes; read anew with every question.
class FakeJvmLog {
  public:
    struct Line {
        unsigned long thread = 0;
        std::string text;
    };

    explicit FakeJvmLog(std::wstring file) : file_(std::move(file)) {}

    std::vector<Line> Lines() const;
    std::vector<std::string> Texts() const;

    /// Whether there is a line of exactly this text.
    bool Has(std::string_view text) const;
    /// How many lines begin with this text.
    std::size_t Count(std::string_view start) const;
    /// The first line that begins with this text, without that text; empty when there is none.
    std::string After(std::string_view start) const;

    /// Waits until a line begins with this text, and fails the test when none comes.
    bool WaitFor(std::string_view start, std::chrono::milliseconds patience = kPatience) const;

    /// The options that JNI_CreateJavaVM got, as the log shows them (quoted and escaped), without
    /// the closing "abort" and "exit".
    std::vector<std::string> Options() const;

    /// The calls of the native interface and of the VM's own functions in order, without those that
    /// only look whether an exception is pending: when to look is the caller's choice.
    std::vector<std::string> Calls() const;

    /// The broken rules.
    std::vector<std::string> Violations() const;

  private:
    std::wstring file_;
};

}  // namespace tarn::test
