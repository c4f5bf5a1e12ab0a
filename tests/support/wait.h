#pragma once

#include <chrono>

namespace tarn::test {

/// The time limit of every wait: longer than any expected condition takes on a slow and busy
/// machine.
constexpr std::chrono::milliseconds kTimeLimit{60'000};

/// Evaluates the condition repeatedly until it holds or the time limit is reached. Returns the last
/// result.
template <typename Condition>
bool WaitUntil(Condition condition, std::chrono::milliseconds timeLimit = kTimeLimit);

/// The pause between two evaluations: sleeps 5 ms.
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
