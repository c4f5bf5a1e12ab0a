#pragma once

#include <cstdint>
#include <string>

#include "base/handles.h"
#include "base/windows.h"
#include "ui/geometry/placement.h"

namespace tarn {

/// Size in bytes of the record that registers a tool with a tooltip. Common controls older than
/// Windows Vista reject the larger record (docs/developer/compatibility.md).
constexpr std::uint32_t ToolRecordSize(bool vistaOrLater) {
    return vistaOrLater ? 72 : 64;
}

/// A tooltip for one part of a window, which relays its mouse messages.
class ToolTip {
  public:
    /// Creates the tooltip's window, owned by `window`. When the common controls cannot be loaded,
    /// the object stays empty and its other operations do nothing.
    void Create(HWND window);

    /// Replaces the tool: shows `text` over `area` of the window, in client coordinates. The text
    /// is copied.
    void SetTool(const std::wstring& text, const PixelRect& area);

    /// Passes on a mouse message of the window (`TTM_RELAYEVENT`).
    void Relay(UINT message, WPARAM wParam, LPARAM lParam) const;

    void Destroy() { toolTip_.reset(); }
    HWND windowHandle() const { return toolTip_.get(); }

  private:
    HWND window_ = nullptr;
    UniqueWindow toolTip_;
};

}  // namespace tarn
