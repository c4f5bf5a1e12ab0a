#pragma once

#include "base/windows.h"

namespace import_hook {

/// Reads HOOK_CLOCK: local times of the form `2026-03-29T02:30:00.000`, separated by spaces.
void ReadLocalClock();

/// Replaces GetLocalTime: each call returns the next time of HOOK_CLOCK, and the last one when none
/// is left. Without HOOK_CLOCK the clock is Windows'.
void WINAPI GetPlannedLocalTime(SYSTEMTIME* time);

}  // namespace import_hook
