#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "tests/failing_calls/call_points.h"

namespace tarn::test {

/// What failed calls of a scenario come to: the committed file of that name in
/// tests/failing_calls/outcomes, which lies beside the test program.
class Expectations {
  public:
    explicit Expectations(const std::string& scenario);

    /// Empty when nothing is known of the function.
    const std::set<std::string>& OutcomesOf(const std::string& function) const;

  private:
    std::map<std::string, std::set<std::string>> outcomes_;
};

/// Writes such a file: a line for each function and outcome, with the calls that come to it.
void WriteOutcomes(const std::wstring& file, const std::string& title,
                   const std::vector<std::pair<CallPoint, std::string>>& outcomes);

}  // namespace tarn::test
