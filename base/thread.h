#pragma once

#include "base/windows.h"

namespace tarn {

/// Waits up to `timeoutMs` milliseconds for a thread's end (`WaitForSingleObject`) and returns
/// whether it has ended. The wait decides, because a thread may exit with `STILL_ACTIVE` (259).
/// Only when the wait fails does the exit code decide: callers then destroy what the thread uses.
bool HasEnded(HANDLE thread, DWORD timeoutMs);

/// Ends a thread that runs a message loop: posts `WM_QUIT` to it (`PostThreadMessageW`) until the
/// thread has ended, without a pause between the attempts (docs/developer/compatibility.md). One
/// message is not enough, because a message posted before the thread has created its message queue
/// is lost. With a `threadId` of 0 the id is queried for each attempt (`GetThreadId`), so that a
/// failure of the query is not the end of the attempts. Does nothing for a null `thread`.
void QuitAndJoin(HANDLE thread, DWORD threadId);

}  // namespace tarn
