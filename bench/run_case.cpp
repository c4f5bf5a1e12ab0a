#include "bench/bench_case.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <stdexcept>

namespace tarn::bench {

namespace {

constexpr int kTries = 3;  // on a busy machine Wine now and then loses a process

// readings[contender][quantity]: the readings in the order of the rounds.
using Readings = std::vector<std::vector<std::vector<double>>>;

// Medians and quartiles, because start-up times have a long tail on one side.
struct Summary {
    double best = 0;  // the smallest, which background load affects least
    double median = 0;
    double lowerQuartile = 0;
    double upperQuartile = 0;
};

// Interpolates linearly between the two nearest readings.
double Quantile(const std::vector<double>& sorted, double share) {
    const double place = share * static_cast<double>(sorted.size() - 1);
    const auto below = static_cast<std::size_t>(std::floor(place));
    const auto above = static_cast<std::size_t>(std::ceil(place));
    return sorted[below] + (sorted[above] - sorted[below]) * (place - std::floor(place));
}

// Of at least one reading.
Summary Summarize(std::vector<double> readings) {
    std::sort(readings.begin(), readings.end());
    return {readings.front(), Quantile(readings, 0.5), Quantile(readings, 0.25),
            Quantile(readings, 0.75)};
}

Sample Run(const Contender& contender) {
    for (int tries = 1;; ++tries) {
        try {
            return contender.run();
        } catch (const std::exception& failure) {
            std::fprintf(stderr, "%s: %s\n", contender.name.c_str(), failure.what());
            if (tries == kTries) throw;
        }
    }
}

Readings Measure(const Case& benchCase, int rounds) {
    const std::size_t count = benchCase.contenders.size();
    Readings readings(count, std::vector<std::vector<double>>(benchCase.quantities.size()));
    for (int round = -benchCase.warmUpRounds; round < rounds; ++round) {
        for (std::size_t turn = 0; turn < count; ++turn) {
            // No case always runs right after the same other case.
            const std::size_t index =
                (turn + static_cast<std::size_t>(round + benchCase.warmUpRounds)) % count;
            const Sample sample = Run(benchCase.contenders[index]);
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

void PrintReading(const std::vector<double>& series) {
    const Summary summary = Summarize(series);
    // What is large, or counted, needs no tenths.
    const int digits = summary.median < 1000 && summary.lowerQuartile != summary.best ? 1 : 0;
    std::printf(" %.*f (%.*f to %.*f; %.*f) |", digits, summary.median, digits,
                summary.lowerQuartile, digits, summary.upperQuartile, digits, summary.best);
}

void PrintHead(const std::vector<std::string>& columns) {
    std::printf("| |");
    for (const std::string& column : columns) std::printf(" %s |", column.c_str());
    std::printf("\n|---|");
    for (std::size_t i = 0; i < columns.size(); ++i) std::printf("---:|");
    std::printf("\n");
}

// A row for each contender; where there is only one, for each of its quantities.
void PrintTable(const Case& benchCase, const Readings& readings) {
    if (readings.size() == 1 && benchCase.quantities.size() > 2) {
        PrintHead({benchCase.contenders[0].name});
        for (std::size_t i = 0; i < benchCase.quantities.size(); ++i) {
            std::printf("| %s |", benchCase.quantities[i].c_str());
            PrintReading(readings[0][i]);
            std::printf("\n");
        }
    } else {
        PrintHead(benchCase.quantities);
        for (std::size_t i = 0; i < readings.size(); ++i) {
            std::printf("| %s |", benchCase.contenders[i].name.c_str());
            for (const std::vector<double>& series : readings[i]) PrintReading(series);
            std::printf("\n");
        }
    }
    std::printf("\n");
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
    const int digits = difference ? 0 : 3;
    std::printf("- %s %s %s, %s: **%.*f** (of the best: %.*f", budget.contender.c_str(),
                difference ? "minus" : "against", budget.reference.c_str(), budget.quantity.c_str(),
                digits, value, digits, ofBest);
    if (budget.kind != Budget::Kind::Ratio) {
        const bool atLeast = budget.kind == Budget::Kind::RatioAtLeast;
        const bool met = atLeast ? value >= budget.limit : value <= budget.limit;
        std::printf("; wanted: at %s %.*f): %s\n", atLeast ? "least" : "most", difference ? 0 : 2,
                    budget.limit, met ? "met" : "MISSED");
    } else {
        std::printf(")\n");
    }
}

}  // namespace

bool RunCase(const Case& benchCase, int rounds) {
    const int wanted = benchCase.rounds > 0 ? std::min(benchCase.rounds, rounds) : rounds;
    std::printf("\n### %s\n\n%d rounds.\n\n", benchCase.name.c_str(), wanted);
    std::fflush(stdout);
    try {
        const Readings readings = Measure(benchCase, wanted);
        PrintTable(benchCase, readings);
        for (const Budget& budget : benchCase.budgets) PrintBudget(benchCase, readings, budget);
    } catch (const std::exception& failure) {
        std::printf("NOT MEASURED: %s\n", failure.what());
        return false;
    }
    std::fflush(stdout);
    return true;
}

}  // namespace tarn::bench
