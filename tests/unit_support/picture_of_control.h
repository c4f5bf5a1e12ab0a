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
    /// Whether some line of the area has the colour over its whole width.
    bool HasUnderline(const PixelRect& area, COLORREF color) const;

  private:
    HDC dc_;
    HBITMAP bitmap_;
    HGDIOBJ before_;
};

/// What the control draws when it is asked for its client area.
Picture PictureOf(HWND control);
/// What stands on the screen where the control is.
Picture ScreenOf(HWND control);

}  // namespace tarn
