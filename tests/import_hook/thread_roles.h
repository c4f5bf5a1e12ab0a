#pragma once

#include "base/windows.h"

namespace import_hook {

/// To be called once, before any thread of the program runs.
void PrepareThreadRoles();

/// The number of the calling thread; 1 is that of threads which the program did not make.
unsigned ThreadRole();

/// Stands for CreateThread: the same, and numbers the new thread.
HANDLE WINAPI CreateThreadWithRole(SECURITY_ATTRIBUTES* security, SIZE_T stackSize,
                                   LPTHREAD_START_ROUTINE start, void* parameter, DWORD flags,
                                   DWORD* threadId);

}  // namespace import_hook
