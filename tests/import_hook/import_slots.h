#pragma once

#include <vector>

#include "base/windows.h"

namespace import_hook {

/// One place of the program's import table.
struct ImportSlot {
    const char* library;
    const char* name;  ///< null: imported by number
    unsigned number;
    void** place;
};

/// The places of this process's program, the launcher itself; no other module is looked at.
std::vector<ImportSlot> ImportSlots();

/// Writes to a place, which is otherwise read-only.
void Redirect(void** place, void* target);

/// Whether there is code at the address. Some imports are variables.
bool IsCode(const void* address);

}  // namespace import_hook
