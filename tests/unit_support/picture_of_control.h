#pragma once

#include "base/windows.h"
#include "ui/geometry/placement.h"

namespace tarn {

/// The pixels of a control.
class Picture {
  public:
    Picture();
    ~Picture();
    Picture(Picture&& other) noexcept;
    Picture& operator=(Picture&&) = delete;

    HDC dc() const { return dc_; }
    COLORREF At(int x, int y) const { return GetPixel(dc_, x, y); }
    int Count(COLORREF color) const;
    int CountOtherThan(COLORREF color, const PixelRect& area) const;
    /// Whether a line of the area has the colour over its whole width.
    bool HasUnderline(const PixelRect& area, COLORREF color) const;

  private:
    HDC dc_;
    HBITMAP bitmap_;
    HGDIOBJ before_;
};

/// The control's own drawing of its client area (`WM_PRINTCLIENT`).
Picture PictureOf(HWND control);
/// The pixels on the screen at the control's place.
Picture ScreenOf(HWND control);

}  // namespace tarn
