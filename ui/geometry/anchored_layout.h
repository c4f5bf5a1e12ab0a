#pragma once

#include <vector>

#include "ui/geometry/placement.h"

struct tagMINMAXINFO;  // MINMAXINFO of <windows.h>, which the pure half does without

namespace tarn {

/// How a control follows the growth of its window.
struct Anchor {
    bool movesRight = false;
    bool movesDown = false;
    bool growsRight = false;
    bool growsDown = false;
};

/// The growth of a window since its first size, in pixels. Never negative: a window that the screen
/// or a change of scale makes smaller counts as having its first size.
struct Growth {
    int right = 0;
    int down = 0;
};

/// The growth of a client area from its first size to its present one.
Growth GrowthBetween(PixelSize first, PixelSize present);

/// Returns the place of a control that was at `first` before its window grew.
PixelRect Anchored(const PixelRect& first, Anchor anchor, Growth growth);

/// Converts a length in pixels from a screen of `firstDpi` to one of `dpi`, rounded to the nearest.
/// An unknown scale (0) changes nothing.
int ScaledLength(int length, int dpi, int firstDpi);

/// Scales the corner, the width and the height of a rectangle.
PixelRect Scaled(const PixelRect& rectangle, int dpi, int firstDpi);

/// Lays out the controls of a resizable dialog. The dialog's size at `Begin` is its smallest. Used
/// on the dialog's thread only.
class AnchoredControls {
  public:
    /// Records the dialog's size and its monitor's scale, in `WM_INITDIALOG`.
    void Begin(HWND__* dialog);
    /// Records the place of a control. Unknown ids are ignored: the control may have been removed
    /// from the dialog's resource.
    void Add(int controlId, Anchor anchor);

    /// Moves every control to its place for the dialog's present size and scale.
    void LayOut() const;
    /// Sets the smallest size, in `WM_GETMINMAXINFO`.
    void LimitSize(tagMINMAXINFO& limits) const;

  private:
    struct Control {
        HWND__* window;
        Anchor anchor;
        PixelRect first;
    };

    HWND__* dialog_ = nullptr;
    PixelRect firstWindow_;
    PixelRect firstClient_;
    int firstDpi_ = 0;
    std::vector<Control> controls_;
};

}  // namespace tarn
