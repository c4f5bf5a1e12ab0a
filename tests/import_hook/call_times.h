#pragma once

#include "tests/import_hook/hooked_function.h"

namespace import_hook {

/// If HOOK_TIMES names a file, records the time of every logged call except those of memory
/// functions. The times stay in memory until the end of the process, because writing takes longer
/// than the calls.
void OpenCallTimes();
void RecordCallTime(const HookedFunction& function, unsigned role);

/// Writes a line for each call: `ROLE FUNCTION NANOSECONDS` of the performance counter.
void WriteCallTimes();

}  // namespace import_hook
