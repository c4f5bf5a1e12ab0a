#pragma once

#include <string>

#include "base/windows.h"
#include "ui/hyperlink/link_colors.h"
#include "ui/hyperlink/link_text.h"
#include "ui/hyperlink/tool_tip.h"

namespace tarn {

/// Makes a link out of a control that exists already, a static text as a rule: underlined text in
/// the user's link colours, a hand cursor, a tooltip with the address, mouse and keyboard. A click
/// opens the address with the shell, or tells the parent.
///
/// The setters before `Attach` say what it begins with. The object must live as long as the control
/// or let go of it earlier by its destruction; all on the control's thread.
class HyperLink {
  public:
    /// What happens on a click.
    enum class Mode {
        OpenAddress,    ///< the shell opens the address
        CommandParent,  ///< the parent gets WM_COMMAND with the control's id
        NotifyParent,   ///< the parent gets WM_NOTIFY with NM_CLICK
    };

    HyperLink() = default;
    HyperLink(const HyperLink&) = delete;
    HyperLink& operator=(const HyperLink&) = delete;
    ~HyperLink() { Detach(); }

    /// The text to show, with the link between "<A>" and "</A>"; the control's own text otherwise.
    void SetLabel(const std::wstring& label) { label_ = label; }
    /// The font of plain text, which stays the caller's; that of icon titles otherwise.
    void SetFont(HFONT font) { ownersFont_ = font; }
    /// What stands in when the user has set no colours for links.
    void SetDefaultColors(const LinkColors& colors) { colors_ = colors; }
    void SetMode(Mode mode) { mode_ = mode; }
    void SetSingleLine(bool singleLine) { format_.singleLine = singleLine; }

    /// Subclasses the control. Returns false when it cannot be (no window, or one that is a link
    /// already).
    bool Attach(HWND window);

    /// What a click opens and the tooltip shows; the label otherwise.
    void SetUrl(const std::wstring& url);

    bool attached() const { return window_ != nullptr; }
    bool visited() const { return visited_; }
    const std::wstring& url() const { return url_; }
    const LinkColors& colors() const { return colors_; }
    const ToolTip& toolTip() const { return toolTip_; }
    /// The part that reacts to the mouse, in client coordinates.
    const PixelRect& linkRect() const { return layout_.link; }

  private:
    /// Under which the control's window keeps its object. A property leaves the window's user data
    /// to whoever uses the control.
    static constexpr wchar_t kObjectProperty[] = L"Tarn.HyperLink";

    static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam,
                                       LPARAM lParam) noexcept;
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam);
    /// Painting, and what the control's own procedure would otherwise paint on its own; only asked
    /// when the control shows text. Returns whether `result` is the answer.
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
