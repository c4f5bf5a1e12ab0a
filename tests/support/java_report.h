#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/support/wait.h"

namespace tarn::test {

/// What the Java fixtures reported (tests/java/fixture/Report.java): values under names that may
/// come more than once. Read anew with every question, so it can be asked while Java runs.
class JavaReport {
  public:
    explicit JavaReport(std::wstring file) : file_(std::move(file)) {}

    /// The values of that name, in the order in which they were reported.
    std::vector<std::wstring> All(std::string_view name) const;

    /// The value of that name; fails the test, and is empty, when there is not exactly one.
    std::wstring One(std::string_view name) const;

    /// The same as a number.
    long long Number(std::string_view name) const;

    bool Has(std::string_view name, std::wstring_view value) const;

    /// Waits until that value is there, and fails the test when it does not come.
    bool WaitFor(std::string_view name, std::wstring_view value,
                 std::chrono::milliseconds patience = kPatience) const;

  private:
    std::wstring file_;
};

}  // namespace tarn::test
