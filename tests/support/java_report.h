#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/support/wait.h"

namespace tarn::test {

/// The report of the Java fixtures (tests/java/fixture/Report.java): values by name, several for
/// one name if need be. Every operation reads the file again, also while Java runs.
class JavaReport {
  public:
    explicit JavaReport(std::wstring file) : file_(std::move(file)) {}

    /// The values of that name, in the order in which they were reported.
    std::vector<std::wstring> All(std::string_view name) const;

    /// The only value of that name; fails the test and returns an empty text unless there is
    /// exactly one.
    std::wstring One(std::string_view name) const;

    /// The same, as a number.
    long long Number(std::string_view name) const;

    bool Has(std::string_view name, std::wstring_view value) const;

    /// Waits for that value; fails the test when it does not appear.
    bool WaitFor(std::string_view name, std::wstring_view value,
                 std::chrono::milliseconds timeLimit = kTimeLimit) const;

  private:
    std::wstring file_;
};

}  // namespace tarn::test
