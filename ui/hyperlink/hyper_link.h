#pragma once

#include <string>

#include "base/windows.h"
#include "ui/hyperlink/link_colors.h"
#include "ui/hyperlink/link_text.h"
#include "ui/hyperlink/tool_tip.h"

namespace tarn {

/// Turns an existing control, usually a static text, into a link: underlined text in the user's
/// link colours, a hand cursor, a tooltip with the address, mouse and keyboard. A click opens the
/// address with the shell or notifies the parent.
///
/// The setters are called before `Attach`. The destructor releases the control, so the object need
/// not live as long; everything runs on the control's thread.
class HyperLink {
  public:
    /// The effect of a click.
    enum class Mode {
        OpenAddress,    ///< the shell opens the address
        CommandParent,  ///< the parent receives WM_COMMAND with the control's id
        NotifyParent,   ///< the parent receives WM_NOTIFY with NM_CLICK
    };

    HyperLink() = default;
    HyperLink(const HyperLink&) = delete;
    HyperLink& operator=(const HyperLink&) = delete;
    ~HyperLink() { Detach(); }

    /// The text, with the link between "<A>" and "</A>"; by default the control's own text.
    void SetLabel(const std::wstring& label) { label_ = label; }
    /// The font of plain text, which the caller owns; by default that of icon titles.
    void SetFont(HFONT font) { ownersFont_ = font; }
    void SetMode(Mode mode) { mode_ = mode; }
    void SetSingleLine(bool singleLine) { format_.singleLine = singleLine; }

    /// Subclasses the control. Returns false when it is no window or already a link.
    bool Attach(HWND window);

    /// The address that a click opens and the tooltip shows; by default the label.
    void SetUrl(const std::wstring& url);

    bool attached() const { return window_ != nullptr; }
    bool visited() const { return visited_; }
    const std::wstring& url() const { return url_; }
    const LinkColors& colors() const { return colors_; }
    const ToolTip& toolTip() const { return toolTip_; }
    /// The part that reacts to the mouse, in client coordinates.
    const PixelRect& linkRect() const { return layout_.link; }

  private:
    /// The window property that holds the object; the window's user data stays the application's.
    /// Why not `SetWindowSubclass`: docs/developer/compatibility.md.
    static constexpr wchar_t kObjectProperty[] = L"Tarn.HyperLink";

    static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam,
                                       LPARAM lParam) noexcept;
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam);
    /// Handles painting, for a control that shows text. Returns whether the message is handled,
    /// with its `result`.
    bool HandleTextMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    LRESULT CallPrevious(UINT message, WPARAM wParam, LPARAM lParam);

    void PrepareStatic();
    void ReadLabel();
    void Detach();
    /// The label, or the url when there is none.
    const std::wstring& text() const { return label_.empty() ? url_ : label_; }
    void LayOut();
    void RegisterTool();
    void Paint(HDC dc);
    void Repaint() const { InvalidateRect(window_, nullptr, TRUE); }

    bool IsOverLink(POINT point) const;
    bool SetCursorOverLink() const;
    void MouseMove(POINT point);
    void PressButton(POINT point);
    void ReleaseButton(POINT point);
    void Activate();

    HWND window_ = nullptr;
    WNDPROC previousProc_ = nullptr;
    std::wstring label_;
    std::wstring url_;
    HFONT ownersFont_ = nullptr;
    LinkFonts fonts_;
    HCURSOR cursor_ = nullptr;
    ToolTip toolTip_;
    LinkColors colors_;
    LinkFormat format_;
    LinkLayout layout_;
    Mode mode_ = Mode::OpenAddress;
    bool textMode_ = true;  ///< the control shows text, which is drawn here
    bool visited_ = false;  ///< for the control's lifetime only
    bool hover_ = false;
};

}  // namespace tarn
