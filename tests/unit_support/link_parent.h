#pragma once

#include <string>
#include <vector>

#include "base/windows.h"
#include "ui/geometry/placement.h"
#include "ui/hyperlink/tool_tip.h"

namespace tarn {

inline constexpr int kLinkWidth = 200;
inline constexpr int kLinkHeight = 60;
inline constexpr int kLinkId = 77;
/// The background that the parent paints.
inline constexpr COLORREF kParentColor = RGB(250, 240, 230);

/// A visible window with a control that a test turns into a link; it records the control's
/// messages.
class LinkParent {
  public:
    LinkParent();
    ~LinkParent();
    LinkParent(const LinkParent&) = delete;
    LinkParent& operator=(const LinkParent&) = delete;

    HWND AddStatic(const wchar_t* text, DWORD style);
    void DestroyOnCommand(HWND control) { victim_ = control; }
    void Close();

    HWND window() const { return window_; }
    const std::vector<WPARAM>& commands() const { return commands_; }
    const std::vector<NMHDR>& notifications() const { return notifications_; }

  private:
    static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    HWND window_ = nullptr;
    HWND victim_ = nullptr;
    HBRUSH brush_ = nullptr;
    std::vector<WPARAM> commands_;
    std::vector<NMHDR> notifications_;
};

struct ToolTipContents {
    int count = 0;
    std::wstring text;
    PixelRect area;
};
ToolTipContents ContentsOf(const ToolTip& toolTip);

}  // namespace tarn
