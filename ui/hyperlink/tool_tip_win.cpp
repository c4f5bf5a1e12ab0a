#include "ui/hyperlink/tool_tip.h"

#include <commctrl.h>

#include "base/dynamic_library.h"

namespace tarn {
namespace {

constexpr UINT_PTR kToolId = 1;

bool IsVistaOrLater() {
    OSVERSIONINFOEXW wanted{};
    wanted.dwOSVersionInfoSize = sizeof(wanted);
    wanted.dwMajorVersion = 6;
    DWORDLONG conditions = 0;
    conditions = VerSetConditionMask(conditions, VER_MAJORVERSION, VER_GREATER_EQUAL);
    conditions = VerSetConditionMask(conditions, VER_MINORVERSION, VER_GREATER_EQUAL);
    conditions = VerSetConditionMask(conditions, VER_SERVICEPACKMAJOR, VER_GREATER_EQUAL);
    return VerifyVersionInfoW(&wanted, VER_MAJORVERSION | VER_MINORVERSION | VER_SERVICEPACKMAJOR,
                              conditions) != FALSE;
}

static_assert(sizeof(TTTOOLINFOW) == ToolRecordSize(true));

TTTOOLINFOW ToolRecord(HWND window) {
    TTTOOLINFOW tool{};
    tool.cbSize = ToolRecordSize(IsVistaOrLater());
    tool.hwnd = window;
    tool.uId = kToolId;
    return tool;
}

// Registers the class of tooltip windows, which is part of the common controls. The launcher does
// not import them.
bool LoadCommonControls() {
    const auto initialize = FindFunction<decltype(&InitCommonControlsEx)>(
        LoadSystemLibrary(L"comctl32.dll"), "InitCommonControlsEx");
    if (initialize == nullptr) return false;
    const INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_TAB_CLASSES};  // tabs and tooltips
    return initialize(&classes) != FALSE;
}

}  // namespace

void ToolTip::Create(HWND window) {
    if (!LoadCommonControls()) return;
    window_ = window;
    // The text is an address, in which "&" has no special meaning.
    toolTip_.reset(CreateWindowExW(0, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX,
                                   CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
                                   window, nullptr, GetModuleHandleW(nullptr), nullptr));
}

void ToolTip::SetTool(const std::wstring& text, const PixelRect& area) {
    if (!toolTip_) return;
    SendMessageW(toolTip_.get(), TTM_ACTIVATE, TRUE, 0);
    TTTOOLINFOW tool = ToolRecord(window_);
    SendMessageW(toolTip_.get(), TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    tool.rect = {area.left, area.top, area.right, area.bottom};
    tool.hinst = GetModuleHandleW(nullptr);
    // The message is sent, not posted, and the text is only read.
    tool.lpszText = const_cast<wchar_t*>(text.c_str());
    SendMessageW(toolTip_.get(), TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

void ToolTip::Relay(UINT message, WPARAM wParam, LPARAM lParam) const {
    if (!toolTip_) return;
    MSG relayed{};
    relayed.hwnd = window_;
    relayed.message = message;
    relayed.wParam = wParam;
    relayed.lParam = lParam;
    SendMessageW(toolTip_.get(), TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&relayed));
}

}  // namespace tarn
