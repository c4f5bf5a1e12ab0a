#pragma once

#include <string>

#include "base/handles.h"
#include "base/windows.h"
#include "ui/pixel_rect.h"

namespace tarn {

/// A window that goes with the object. Destroying one that its owner window has taken down already
/// does nothing.
struct WindowTraits {
    using Value = HWND;
    static Value None() { return nullptr; }
    static void Close(Value value) { DestroyWindow(value); }
};
using UniqueWindow = UniqueResource<WindowTraits>;

/// A tooltip for one part of a window. The window tells it of mouse moves.
class ToolTip {
  public:
    /// Makes the tooltip's window, owned by `window`. Common controls that cannot be loaded leave
    /// the object empty, and everything else then does nothing.
    void Create(HWND window);

    /// Shows `text` over `area` of the window from now on, instead of what it showed before. The
    /// text is copied.
    void SetTool(const std::wstring& text, const PixelRect& area);

    /// Passes a mouse message of the window on.
    void Relay(UINT message, WPARAM wParam, LPARAM lParam) const;

    void Destroy() { toolTip_.reset(); }
    HWND windowHandle() const { return toolTip_.get(); }

  private:
    HWND window_ = nullptr;
    UniqueWindow toolTip_;
};

}  // namespace tarn
