#pragma once

#include <chrono>

namespace tarn::test {

/// What a condition that comes true at all takes at most, even on a slow and busy machine.
constexpr std::chrono::milliseconds kPatience{30'000};

/// Asks again and again until the condition holds; its last answer.
template <typename Condition>
bool WaitUntil(Condition condition, std::chrono::milliseconds patience = kPatience);

/// Gives the processor away for a moment between two looks.
void Pause();

template <typename Condition>
bool WaitUntil(Condition condition, std::chrono::milliseconds patience) {
    const auto end = std::chrono::steady_clock::now() + patience;
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= end) return condition();
        Pause();
    }
    return true;
}

}  // namespace tarn::test
