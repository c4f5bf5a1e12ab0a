#pragma once

#include <string>

#include "ui/splash/gdi_handles.h"
#include "ui/splash/window_thunk.h"

namespace tarn {

/// The launcher's own splash window: a borderless picture in the middle of the primary screen.
/// Created and destroyed by the thread that runs its message loop; the object itself may go
/// elsewhere once the window is gone.
class SplashScreenWindow {
  public:
    SplashScreenWindow() = default;
    SplashScreenWindow(const SplashScreenWindow&) = delete;
    SplashScreenWindow& operator=(const SplashScreenWindow&) = delete;

    /// Decodes and renders the picture and makes the window for it, not yet visible. A picture that
    /// cannot be decoded gives a window without extent. Returns null when there is no window, with
    /// `ERROR_OUTOFMEMORY` as the last error when there is no memory for its procedure.
    HWND Create(const std::wstring& imagePath, bool shadow);

    /// Destroys the window, if there is one. To be called by the thread that created it.
    void Destroy();

    /// The message map: whether the message is handled, and then its result.
    virtual bool ProcessWindowMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    virtual ~SplashScreenWindow() = default;
    /// What the window's messages are brought to.
    virtual ObjectProcedure GetWindowProcedure() const;
    /// Called when the window has received its last message.
    virtual void OnFinalMessage(HWND) {}

  private:
    static LRESULT CALLBACK StartProcedure(HWND window, UINT message, WPARAM wParam,
                                           LPARAM lParam) noexcept;
    static LRESULT CALLBACK WindowProcedure(void* object, UINT message, WPARAM wParam,
                                            LPARAM lParam) noexcept;
    static bool RegisterWindowClass(bool shadow);

    void Attach(HWND window);
    LRESULT Receive(UINT message, WPARAM wParam, LPARAM lParam);
    void Paint();

    HWND window_ = nullptr;
    WindowThunk thunk_;
    WNDPROC superProcedure_ = DefWindowProcW;
    bool messageHandled_ = false;
    UniqueBitmap bitmap_;
};

}  // namespace tarn
