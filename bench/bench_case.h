#pragma once

#include <functional>
#include <string>
#include <vector>

namespace tarn::bench {

/// One reading of every quantity of a case, in the case's order.
using Sample = std::vector<double>;

/// One way to do the same thing. `run` does it once; it throws std::runtime_error when it went
/// wrong.
struct Contender {
    std::string name;
    std::function<Sample()> run;
};

/// A bound on the ratio of two contenders' medians of one quantity (or on their difference).
struct Budget {
    /// `Ratio` has no limit: it is printed for comparison.
    enum class Kind { RatioAtMost, RatioAtLeast, DifferenceAtMost, Ratio };

    std::string quantity;
    std::string contender;
    std::string reference;
    Kind kind = Kind::RatioAtMost;
    double limit = 0;
};

/// A named measurement: its contenders take turns, so that a change of the machine's mood hits all
/// of them.
struct Case {
    std::string name;
    std::vector<std::string> quantities;  ///< with their unit, such as "to main, ms"
    std::vector<Contender> contenders;
    std::vector<Budget> budgets;
    int rounds = 0;  ///< at most so many; 0: as many as the command line says
};

struct Workspace;

// Where the cases come from; add a function here and to AllCases.
std::vector<Case> ScriptedRuntimeCases(const Workspace& workspace);
std::vector<Case> JavaStartCases(const Workspace& workspace);
std::vector<Case> MemoryCases(const Workspace& workspace);
std::vector<Case> StationCases(const Workspace& workspace);
std::vector<Case> GrowthCases(const Workspace& workspace);
std::vector<Case> HandOffCases(const Workspace& workspace);
std::vector<Case> RegistryCases(const Workspace& workspace);
std::vector<Case> SplashCases(const Workspace& workspace);

std::vector<Case> AllCases(const Workspace& workspace);

/// Runs a case and prints its table and budgets on the standard output. False when it could not be
/// measured.
bool RunCase(const Case& benchCase, int rounds);

}  // namespace tarn::bench
