#pragma once

#include "base/windows.h"

namespace import_hook {

/// Called once, before the program creates a thread.
void PrepareThreadRoles();

/// The number of the calling thread; 1 for threads that the program has not created.
unsigned ThreadRole();

/// Replaces CreateThread: calls it and numbers the new thread.
HANDLE WINAPI CreateThreadWithRole(SECURITY_ATTRIBUTES* security, SIZE_T stackSize,
                                   LPTHREAD_START_ROUTINE start, void* parameter, DWORD flags,
                                   DWORD* threadId);

}  // namespace import_hook
