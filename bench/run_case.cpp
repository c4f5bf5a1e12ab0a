#include "bench/bench_case.h"

#include <algorithm>
#include <cstdio>
#include <stdexcept>

#include "bench/statistics.h"

namespace tarn::bench {

namespace {

constexpr int kWarmUpRounds = 2;  // files come into the system's cache, the prefix's services start

// readings[contender][quantity]: the readings in the order of the rounds.
using Readings = std::vector<std::vector<std::vector<double>>>;

Readings Measure(const Case& benchCase, int rounds) {
    const std::size_t count = benchCase.contenders.size();
    Readings readings(count, std::vector<std::vector<double>>(benchCase.quantities.size()));
    for (int round = -kWarmUpRounds; round < rounds; ++round) {
        for (std::size_t turn = 0; turn < count; ++turn) {
            // Nobody always comes right after the same other one.
            const std::size_t index =
                (turn + static_cast<std::size_t>(round + kWarmUpRounds)) % count;
            const Sample sample = benchCase.contenders[index].run();
            for (std::size_t i = 0; round >= 0 && i < sample.size(); ++i)
                readings[index][i].push_back(sample[i]);
        }
    }
    return readings;
}

std::size_t IndexOf(const Case& benchCase, const std::string& contender) {
    const auto found =
        std::find_if(benchCase.contenders.begin(), benchCase.contenders.end(),
                     [&](const Contender& candidate) { return candidate.name == contender; });
    if (found == benchCase.contenders.end()) throw std::runtime_error("no contender " + contender);
    return static_cast<std::size_t>(found - benchCase.contenders.begin());
}

void PrintBudget(const Case& benchCase, const Readings& readings, const Budget& budget) {
    const auto quantity = static_cast<std::size_t>(
        std::find(benchCase.quantities.begin(), benchCase.quantities.end(), budget.quantity) -
        benchCase.quantities.begin());
    const Summary ours = Summarize(readings[IndexOf(benchCase, budget.contender)].at(quantity));
    const Summary theirs = Summarize(readings[IndexOf(benchCase, budget.reference)].at(quantity));
    const bool difference = budget.kind == Budget::Kind::DifferenceAtMost;
    const double value = difference ? ours.median - theirs.median : ours.median / theirs.median;
    const double ofBest = difference ? ours.best - theirs.best : ours.best / theirs.best;
    const bool atLeast = budget.kind == Budget::Kind::RatioAtLeast;
    const bool met = atLeast ? value >= budget.limit : value <= budget.limit;
    std::printf("  %s %s %s, %s: %.3f (of the best: %.3f; wanted: at %s %.2f) %s\n",
                budget.contender.c_str(), difference ? "minus" : "against",
                budget.reference.c_str(), budget.quantity.c_str(), value, ofBest,
                atLeast ? "least" : "most", budget.limit, met ? "met" : "MISSED");
}

}  // namespace

bool RunCase(const Case& benchCase, int rounds) {
    const int wanted = benchCase.rounds > 0 ? benchCase.rounds : rounds;
    std::printf("\n## %s\n\n%d rounds, median (quartiles; best)\n\n| |", benchCase.name.c_str(),
                wanted);
    for (const std::string& quantity : benchCase.quantities) std::printf(" %s |", quantity.c_str());
    std::printf("\n|---|");
    for (std::size_t i = 0; i < benchCase.quantities.size(); ++i) std::printf("---:|");
    std::printf("\n");
    std::fflush(stdout);
    try {
        const Readings readings = Measure(benchCase, wanted);
        for (std::size_t i = 0; i < benchCase.contenders.size(); ++i) {
            std::printf("| %s |", benchCase.contenders[i].name.c_str());
            for (const std::vector<double>& series : readings[i]) {
                const Summary summary = Summarize(series);
                std::printf(" %.1f (%.1f to %.1f; %.1f) |", summary.median, summary.lowerQuartile,
                            summary.upperQuartile, summary.best);
            }
            std::printf("\n");
        }
        std::printf("\n");
        for (const Budget& budget : benchCase.budgets) PrintBudget(benchCase, readings, budget);
    } catch (const std::exception& failure) {
        std::printf("NOT MEASURED: %s\n", failure.what());
        return false;
    }
    std::fflush(stdout);
    return true;
}

}  // namespace tarn::bench
