#pragma once

#include <string>

#include "tests/failing_calls/scenario.h"

namespace tarn::test {

/// What an undisturbed launch does.
inline constexpr char kGoesOn[] = "goes on";

/// How a launch differs from an undisturbed one, in one line.
std::string OutcomeOf(const Facts& facts, const Facts& undisturbed);

/// Whether a launch may end so at all, whatever failed: as ever, by the application's own code,
/// with 0 or -1 or by the code of an out-of-memory failure, but not by a crash, and not never.
bool IsDecent(const Facts& facts, const Facts& undisturbed, const std::string& applicationCode);

}  // namespace tarn::test
