#include "base/windows.h"
#include "core/launcher.h"
#include "ui/splash/gdi_plus.h"

namespace {

int Launch() {
    tarn::Launcher launcher;
    // JVM options are converted to the thread's code page, which must be the system's rather than
    // the user's.
    SetThreadLocale(GetSystemDefaultLCID());
    // Calls into the window manager before anything can make the process wait; the result does not
    // matter (docs/developer/compatibility.md).
    DefWindowProcW(nullptr, 0, 0, 0);
    return launcher.Init() ? launcher.Run() : tarn::kFailedStart;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    // None of the launcher's windows exists any more: its destructor ends the splash thread, which
    // destroys its window, and dialogs are modal.
    const int exitCode = Launch();
    tarn::ShutDownGdiPlus();
    return exitCode;
}
