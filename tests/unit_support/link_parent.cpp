#include "tests/unit_support/link_parent.h"

#include <commctrl.h>

#include <utility>

namespace tarn {
namespace {

constexpr wchar_t kClassName[] = L"TarnLinkParent";

}  // namespace

LinkParent::LinkParent() {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = &WindowProc;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = kClassName;
    RegisterClassW(&windowClass);  // fails for the second object; the class exists then
    brush_ = CreateSolidBrush(kParentColor);
    window_ = CreateWindowExW(0, kClassName, L"", WS_POPUP | WS_VISIBLE, 100, 100, 400, 300,
                              nullptr, nullptr, windowClass.hInstance, this);
    SetForegroundWindow(window_);
}

LinkParent::~LinkParent() {
    Close();
    DeleteObject(brush_);
}

void LinkParent::Close() {
    if (window_ != nullptr) DestroyWindow(std::exchange(window_, nullptr));
}

HWND LinkParent::AddStatic(const wchar_t* text, DWORD style) {
    return CreateWindowExW(
        0, L"Static", text, WS_CHILD | WS_VISIBLE | style, 20, 20, kLinkWidth, kLinkHeight, window_,
        reinterpret_cast<HMENU>(static_cast<INT_PTR>(kLinkId)), GetModuleHandleW(nullptr), nullptr);
}

LRESULT CALLBACK LinkParent::WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        const auto* const creation = reinterpret_cast<const CREATESTRUCTW*>(lParam);
        SetWindowLongPtrW(window, GWLP_USERDATA,
                          reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
    }
    auto* const self = reinterpret_cast<LinkParent*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self != nullptr) {
        if (message == WM_CTLCOLORSTATIC) return reinterpret_cast<LRESULT>(self->brush_);
        if (message == WM_COMMAND) {
            self->commands_.push_back(wParam);
            if (self->victim_ != nullptr) DestroyWindow(std::exchange(self->victim_, nullptr));
            return 0;
        }
        if (message == WM_NOTIFY) {
            const auto* const header = reinterpret_cast<const NMHDR*>(lParam);
            // The tooltip sends notifications, too.
            if (header->idFrom == kLinkId) self->notifications_.push_back(*header);
            return 0;
        }
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

ToolTipContents ContentsOf(const ToolTip& toolTip) {
    ToolTipContents contents;
    const HWND window = toolTip.windowHandle();
    contents.count = static_cast<int>(SendMessageW(window, TTM_GETTOOLCOUNT, 0, 0));
    wchar_t text[1024];
    TTTOOLINFOW tool{};
    tool.cbSize = sizeof(tool);
    tool.lpszText = text;
    if (SendMessageW(window, TTM_ENUMTOOLSW, 0, reinterpret_cast<LPARAM>(&tool)) == FALSE)
        return contents;
    contents.text = text;
    contents.area = {tool.rect.left, tool.rect.top, tool.rect.right, tool.rect.bottom};
    return contents;
}

}  // namespace tarn
