#pragma once

#include "base/windows.h"

namespace tarn {

/// Ends a thread that runs a message loop: posts `WM_QUIT` to it (`PostThreadMessageW`) until the
/// thread has ended, without a pause between the attempts. One message is not enough, because a
/// message posted before the thread has created its message queue is lost. The end is detected by
/// waiting on the handle, so a thread that exits with `STILL_ACTIVE` (259) is seen to end as well.
/// Returns at once when `thread` is not a valid handle with `SYNCHRONIZE` access.
void QuitAndJoin(HANDLE thread, DWORD threadId);

}  // namespace tarn
