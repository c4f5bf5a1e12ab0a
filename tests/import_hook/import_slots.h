#pragma once

#include <vector>

#include "base/windows.h"

namespace import_hook {

/// A slot of the program's import table.
struct ImportSlot {
    const char* library;
    const char* name;  ///< null: imported by ordinal
    unsigned number;
    void** place;
};

/// The slots of this process's executable. Other modules are ignored.
std::vector<ImportSlot> ImportSlots();

/// Writes to a slot, which is read-only otherwise.
void Redirect(void** place, void* target);

/// Whether the address contains code. Some imports are variables.
bool IsCode(const void* address);

}  // namespace import_hook
