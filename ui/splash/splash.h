#pragma once

#include <atomic>
#include <memory>
#include <string>

#include "base/handles.h"
#include "base/one_shot_action.h"
#include "base/windows.h"
#include "ui/splash/splash_screen_window.h"

namespace tarn {

/// The splash settings, section "Display" of the settings file.
struct SplashSettings {
    /// "Splash Screen". Empty: no splash, and the other two are not read.
    std::wstring splashImagePath;
    /// "Splash Screen Shadow" as it is in the file; only "true" asks for the shadow.
    std::wstring splashShadow;
    /// "Preffer Native Splash Screen": the Java runtime's own splash library is to be used.
    bool preferNative = false;

    bool hasShadow() const { return splashShadow == L"true"; }
};

/// Reads the splash settings. Returns false when the settings file's path cannot be derived.
bool ReadSplashSettings(SplashSettings& settings);

/// The splash of one launch, shown from before the JVM is loaded until `CloseSplash`: in a window
/// of the launcher's own, which has a thread of its own, or by the Java runtime's splash library.
struct Splash {
    Splash() = default;
    Splash(const Splash&) = delete;
    Splash& operator=(const Splash&) = delete;
    ~Splash() { CloseSplash(); }

    /// Reads the settings and shows the picture that they name, if any, without waiting for it.
    /// Returns false only when the settings file's path cannot be derived. The close function of
    /// the runtime's splash library goes into `launchFailureAction`.
    bool ShowSplash(const std::wstring& jvmLibraryPath, OneShotAction& launchFailureAction);

    /// Destroys the launcher's own splash window and waits until its thread has ended. Does nothing
    /// when there is none.
    void CloseSplash();

    // Written before the splash thread starts, which reads them.
    SplashSettings settings;
    /// Null when there is no splash window of the launcher's own.
    std::unique_ptr<SplashScreenWindow> splashWindow;

    UniqueHandle splashThread;
    DWORD splashThreadId = 0;

    /// Owner of every error box. Written once, by the splash thread; null until then, and for ever
    /// when there is no splash window of the launcher's own. Keeps its value after `CloseSplash`
    /// (docs/developer/compatibility.md).
    std::atomic<HWND> splashWindowHandle = nullptr;

  private:
    void StartThread();
    static DWORD WINAPI SplashThreadProc(void* splash) noexcept;
    DWORD RunThread();
};

}  // namespace tarn
