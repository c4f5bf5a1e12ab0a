#pragma once

#include <string>

#include "base/handles.h"
#include "base/windows.h"

namespace tarn {

/// The target of a window's messages: a window procedure that receives the object in place of the
/// window's handle.
using ObjectProcedure = LRESULT(CALLBACK*)(void* object, UINT message, WPARAM wParam,
                                           LPARAM lParam);

/// A few bytes of machine code that are the window procedure of one object
/// (docs/developer/compatibility.md). The object must outlive the window.
class WindowThunk {
  public:
    /// Generates the code, once. Returns false when there is no memory for it or the process must
    /// not generate code.
    bool Make(void* object, ObjectProcedure target);

    /// The window procedure, null before `Make`.
    WNDPROC procedure() const { return reinterpret_cast<WNDPROC>(code_.get()); }

  private:
    UniquePages code_;
};

/// The launcher's own splash window: a borderless picture centred on the primary screen. The thread
/// that runs its message loop creates and destroys the window; another thread may destroy the
/// object afterwards. Virtual on purpose: docs/developer/compatibility.md.
class SplashScreenWindow {
  public:
    SplashScreenWindow() = default;
    SplashScreenWindow(const SplashScreenWindow&) = delete;
    SplashScreenWindow& operator=(const SplashScreenWindow&) = delete;

    /// Decodes and renders the picture and creates the window for it, not yet visible. A picture
    /// that cannot be decoded gives a window of 0 x 0 pixels. Returns null when the window could
    /// not be created, with `ERROR_OUTOFMEMORY` as the last error when there is no memory for its
    /// thunk.
    HWND Create(const std::wstring& imagePath, bool shadow);

    /// Destroys the window, if there is one, on the thread that created it.
    void Destroy();

    /// The message map. Returns whether the message is handled, and then sets `result`.
    virtual bool ProcessWindowMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    virtual ~SplashScreenWindow() = default;
    /// Returns the target of the window's messages.
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
