#pragma once

#include <string>

#include "base/one_shot_action.h"
#include "base/windows.h"

namespace tarn {

/// The launch's splash picture, from before the JVM is loaded until `Close`.
class Splash {
  public:
    Splash() = default;
    Splash(const Splash&) = delete;
    Splash& operator=(const Splash&) = delete;
    ~Splash() { Close(); }

    /// Shows the picture that the settings name, if any. Returns false only when the settings
    /// file's path cannot be derived.
    bool Show(const std::wstring& jvmLibraryPath, OneShotAction& launchFailureAction);

    /// Takes the launcher's own splash window down and waits until its thread has ended. Does
    /// nothing when there is none.
    void Close();

    /// Owner of every error box: the splash window, null when there is none (yet).
    HWND windowHandle() const { return windowHandle_; }

  private:
    HWND windowHandle_ = nullptr;
};

}  // namespace tarn
