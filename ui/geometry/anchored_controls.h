#pragma once

#include <vector>

#include "base/windows.h"
#include "ui/geometry/anchored_layout.h"

namespace tarn {

/// Lays out the controls of a resizable dialog. The dialog's size at `Begin` is its smallest. Used
/// on the dialog's thread only.
class AnchoredControls {
  public:
    /// Records the dialog's size and its monitor's scale, in `WM_INITDIALOG`.
    void Begin(HWND dialog);
    /// Records the place of a control. Unknown ids are ignored: the control may have been removed
    /// from the dialog's resource.
    void Add(int controlId, Anchor anchor);

    /// Moves every control to its place for the dialog's present size and scale.
    void LayOut() const;
    /// Sets the smallest size, in `WM_GETMINMAXINFO`.
    void LimitSize(MINMAXINFO& limits) const;

  private:
    struct Control {
        HWND window;
        Anchor anchor;
        Rectangle first;
    };

    HWND dialog_ = nullptr;
    Rectangle firstWindow_;
    Rectangle firstClient_;
    int firstDpi_ = 0;
    std::vector<Control> controls_;
};

}  // namespace tarn
