#pragma once

#include "base/windows.h"

namespace tarn {

/// The device context of a window's client area (`GetDC`), released with the object.
class WindowDc {
  public:
    explicit WindowDc(HWND window) : window_(window), dc_(GetDC(window)) {}
    WindowDc(const WindowDc&) = delete;
    WindowDc& operator=(const WindowDc&) = delete;
    ~WindowDc() { Close(window_, dc_); }

    HDC get() const { return dc_; }

  private:
    static void Close(HWND window, HDC dc) { ReleaseDC(window, dc); }

    HWND window_;
    HDC dc_;
};

}  // namespace tarn
