#pragma once

#include "tests/import_hook/hooked_function.h"

namespace import_hook {

/// When HOOK_TIMES names a file: has the time of every logged call noted, memory's aside. Kept in
/// memory until the end of the process, for writing would take longer than what is measured.
void OpenCallTimes();
void NoteCallTime(const HookedFunction& function, unsigned role);

/// Writes them, a line each: `ROLE FUNCTION NANOSECONDS` of the performance counter.
void WriteCallTimes();

}  // namespace import_hook
