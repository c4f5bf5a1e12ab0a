#pragma once

#include <string>

#include "tests/failing_calls/scenario.h"

namespace tarn::test {

/// The facts of an undisturbed launch.
inline constexpr char kGoesOn[] = "goes on";

/// The differences between a launch and an undisturbed one, in one line.
std::string OutcomeOf(const Facts& facts, const Facts& undisturbed);

/// Whether an end is acceptable, whichever call has failed: the exit code of an undisturbed launch,
/// of the application, 0, -1 or that of an out-of-memory failure, but neither a crash nor a hang.
bool IsAcceptable(const Facts& facts, const Facts& undisturbed, const std::string& applicationCode);

}  // namespace tarn::test
