#pragma once

#include <functional>
#include <string>
#include <vector>

namespace tarn::bench {

/// One reading of every quantity of a case, in the case's order.
using Sample = std::vector<double>;

/// One of several programs or ways that a case compares. `run` takes one sample; it throws
/// std::runtime_error on failure.
struct Contender {
    std::string name;
    std::function<Sample()> run;
};

/// A limit on the ratio, or the difference, of two contenders' medians of one quantity.
struct Budget {
    /// `Ratio` has no limit; it is printed for comparison.
    enum class Kind { RatioAtMost, RatioAtLeast, DifferenceAtMost, Ratio };

    std::string quantity;
    std::string contender;
    std::string reference;
    Kind kind = Kind::RatioAtMost;
    double limit = 0;
};

/// A named measurement. Its contenders take turns, so that background load affects all of them.
struct Case {
    std::string name;
    std::vector<std::string> quantities;  ///< name and unit, such as "to main, ms"
    std::vector<Contender> contenders;
    std::vector<Budget> budgets;
    int rounds = 0;  ///< upper limit; 0: the number given on the command line
    /// Rounds before the first that counts: files come into the system's cache, and the services of
    /// the Wine prefix start.
    int warmUpRounds = 2;
};

struct Workspace;

// A new function is also added to AllCases.
std::vector<Case> ScriptedRuntimeCases(const Workspace& workspace);
std::vector<Case> JavaStartCases(const Workspace& workspace);
std::vector<Case> MemoryCases(const Workspace& workspace);
std::vector<Case> StageCases(const Workspace& workspace);
std::vector<Case> SplashStageCases(const Workspace& workspace);
std::vector<Case> GrowthCases(const Workspace& workspace);
std::vector<Case> HandOffCases(const Workspace& workspace);
std::vector<Case> RegistryCases(const Workspace& workspace);
std::vector<Case> SplashCases(const Workspace& workspace);
std::vector<Case> WindowCases(const Workspace& workspace);

std::vector<Case> AllCases(const Workspace& workspace);

/// Runs a case and prints its table and budgets to the standard output. False if a measurement
/// failed.
bool RunCase(const Case& benchCase, int rounds);

}  // namespace tarn::bench
