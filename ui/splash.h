#pragma once

#include <atomic>
#include <memory>
#include <string>

#include "base/handles.h"
#include "base/one_shot_action.h"
#include "base/windows.h"
#include "ui/splash_screen_window.h"

namespace tarn {

/// What the settings say about the splash picture.
struct SplashSettings {
    /// Empty: no splash, and the rest is not read.
    std::wstring imagePath;
    bool shadow = false;
    /// The Java runtime's own splash library is to show it.
    bool preferNative = false;
};

/// Reads them from the settings file. False when its path cannot be derived.
bool ReadSplashSettings(SplashSettings& splash);

/// The launch's splash picture, from before the JVM is loaded until `Close`: in a window of the
/// launcher's own, which lives in a thread of its own, or in the Java runtime's.
class Splash {
  public:
    Splash() = default;
    Splash(const Splash&) = delete;
    Splash& operator=(const Splash&) = delete;
    ~Splash() { Close(); }

    /// Shows the picture that the settings name, if any, without waiting for it. Returns false only
    /// when the settings file's path cannot be derived.
    bool Show(const std::wstring& jvmLibraryPath, OneShotAction& launchFailureAction);

    /// Takes the launcher's own splash window down and waits until its thread has ended. Does
    /// nothing when there is none.
    void Close();

    /// Owner of every error box: the splash window, null when there is none (yet). After `Close`
    /// the handle of the window that was.
    const std::atomic<HWND>& splashWindowHandle() const { return splashWindowHandle_; }

  private:
    void StartThread();
    static DWORD WINAPI SplashThreadProc(void* splash) noexcept;
    DWORD RunThread();

    // Written before the thread starts, which reads them.
    SplashSettings settings_;
    std::unique_ptr<SplashScreenWindow> splashWindow_;

    UniqueHandle splashThread_;
    DWORD splashThreadId_ = 0;
    // Written once, by the splash thread.
    std::atomic<HWND> splashWindowHandle_ = nullptr;
};

}  // namespace tarn
