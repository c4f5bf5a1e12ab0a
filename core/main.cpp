#include "base/windows.h"
#include "core/launcher.h"
#include "ui/splash/gdi_plus.h"

namespace {

int Launch() {
    tarn::Launcher launcher;
    // Options for the JVM are converted in the thread's code page: the system's, not the user's.
    SetThreadLocale(GetSystemDefaultLCID());
    // Deliberate, and its result is of no interest: the process has called into the window
    // manager before anything can make it wait.
    DefWindowProcW(nullptr, 0, 0, 0);
    return launcher.Init() ? launcher.Run() : tarn::kFailedStart;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    // No window of ours is left by now: the launcher has ended the splash's thread, which destroys
    // its window, and dialogs are modal.
    const int exitCode = Launch();
    tarn::ShutDownGdiPlus();
    return exitCode;
}
