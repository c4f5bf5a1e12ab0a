#include "base/thread.h"

namespace tarn {

void QuitAndJoin(HANDLE thread, DWORD threadId) {
    // Without a pause: docs/developer/compatibility.md.
    do {
        PostThreadMessageW(threadId, WM_QUIT, 0, 0);
    } while (WaitForSingleObject(thread, 0) == WAIT_TIMEOUT);
}

}  // namespace tarn
