#pragma once

#include <vector>

#include "base/windows.h"
#include "ui/geometry/anchored_layout.h"

namespace tarn {

/// Keeps the controls of a resizable dialog in their places. The dialog's size when `Add` is
/// first called is its smallest. Used by the dialog's own thread only.
class AnchoredControls {
  public:
    /// Remembers the dialog's first size and its screen's scale. In `WM_INITDIALOG`.
    void Begin(HWND dialog);
    /// Remembers the first place of a control. Unknown ids are ignored: an application's author
    /// may have taken a control out of the dialog.
    void Add(int controlId, Anchor anchor);

    /// Puts every control where the dialog's present size and scale want it.
    void LayOut() const;
    /// Fills in the smallest size, for `WM_GETMINMAXINFO`.
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
