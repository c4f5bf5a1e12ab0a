#pragma once

#include <chrono>

namespace tarn::test {

/// The bound of every wait: longer than any awaited condition takes on a slow and busy machine.
constexpr std::chrono::milliseconds kTimeLimit{60'000};

/// Evaluates the condition repeatedly until it holds or the time is up; its last result.
template <typename Condition>
bool WaitUntil(Condition condition, std::chrono::milliseconds timeLimit = kTimeLimit);

/// Sleeps 5 ms between two evaluations of a condition.
void Pause();

template <typename Condition>
bool WaitUntil(Condition condition, std::chrono::milliseconds timeLimit) {
    const auto end = std::chrono::steady_clock::now() + timeLimit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= end) return condition();
        Pause();
    }
    return true;
}

}  // namespace tarn::test
