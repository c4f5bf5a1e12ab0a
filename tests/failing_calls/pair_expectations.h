#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "tests/failing_calls/call_points.h"
#include "tests/failing_calls/expectations.h"

namespace tarn::test {

/// A launch in which two calls of one thread have failed in a row.
struct PairOutcome {
    CallPoint first;
    std::optional<CallPoint> second;  ///< none if the launch ends without such a call
    std::string outcome;
};

/// The recorded outcomes of a scenario's failing pairs: the file with the scenario's name in
/// tests/failing_calls/outcomes/pairs, which the build copies beside the test program.
class PairExpectations {
  public:
    explicit PairExpectations(const std::string& scenario);

    /// The outcomes recorded for exactly these calls: one, or several for the later iterations of a
    /// loop. A pair that was not recorded has to end as one of its calls alone does.
    std::set<std::string> OutcomesOf(const PairOutcome& pair) const;

  private:
    Expectations alone_;
    std::map<std::string, std::set<std::string>> outcomes_;
};

/// The calls of each function that can fail.
using CallCounts = std::map<std::string, unsigned>;

/// Writes such a file. Below the title it lists the calls of the undisturbed launch,
/// "# FUNCTION COUNT"; the other lines have seven fields separated by tabs: function, subject and
/// call of the first and of the second one ("-" without a second one), outcome. A call is
/// "OCCURRENCE" in the first thread, "THREAD/OCCURRENCE" in others.
void WritePairOutcomes(const std::wstring& file, const std::string& title, const CallCounts& counts,
                       const std::vector<PairOutcome>& outcomes);

}  // namespace tarn::test
