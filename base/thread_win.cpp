#include "base/thread.h"

namespace tarn {

bool HasEnded(HANDLE thread, DWORD timeoutMs) {
    const DWORD waitResult = WaitForSingleObject(thread, timeoutMs);
    if (waitResult != WAIT_FAILED) return waitResult == WAIT_OBJECT_0;
    DWORD exitCode = STILL_ACTIVE;
    return GetExitCodeThread(thread, &exitCode) && exitCode != STILL_ACTIVE;
}

void QuitAndJoin(HANDLE thread, DWORD threadId) {
    if (thread == nullptr) return;
    do {
        PostThreadMessageW(threadId != 0 ? threadId : GetThreadId(thread), WM_QUIT, 0, 0);
    } while (!HasEnded(thread, 0));
}

}  // namespace tarn
