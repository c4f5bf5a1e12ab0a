#pragma once

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tests/failing_calls/call_points.h"

namespace tarn::test {

/// The recorded outcomes of a scenario's failing calls: the file with the scenario's name in
/// tests/failing_calls/outcomes, which the build copies beside the test program.
class Expectations {
  public:
    explicit Expectations(const std::string& scenario);

    /// The outcomes recorded for exactly this call: one, or several for the later iterations of a
    /// loop. A call that was not recorded has to change nothing: how often a window is painted, and
    /// which messages it receives, depends on the moment.
    std::set<std::string> OutcomesOf(const CallPoint& point) const;

  private:
    // By function, subject and "THREAD/OCCURRENCE".
    std::map<std::string, std::set<std::string>> outcomes_;
};

/// The folder in which the outcomes are recorded: the value of TARN_EVERY_CALL; empty if the test
/// compares them instead.
std::wstring FolderToRecordIn();

/// Writes such a file. Its lines have four fields separated by tabs: function, subject, calls
/// ("OCCURRENCE" in the first thread, "THREAD/OCCURRENCE" in others, separated by spaces), outcome.
void WriteOutcomes(const std::wstring& file, const std::string& title,
                   const std::vector<std::pair<CallPoint, std::string>>& outcomes);

}  // namespace tarn::test
