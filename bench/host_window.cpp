#include "bench/host_window.h"

#include "base/windows.h"

namespace {

// The size of splash.png.
constexpr int kWidth = 600;
constexpr int kHeight = 400;

DWORD WINAPI RunWindow(void*) noexcept {
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.lpfnWndProc = DefWindowProcW;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(INT_PTR{COLOR_WINDOW + 1});
    windowClass.lpszClassName = L"EmptyWindow";
    RegisterClassExW(&windowClass);
    HWND window =
        CreateWindowExW(WS_EX_TOOLWINDOW, windowClass.lpszClassName, nullptr, WS_POPUP, 100, 100,
                        kWidth, kHeight, nullptr, nullptr, windowClass.hInstance, nullptr);
    ShowWindow(window, SW_SHOWNORMAL);
    UpdateWindow(window);
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
    return 0;
}

}  // namespace

void ShowEmptyWindow() {
    HANDLE thread = CreateThread(nullptr, 0, RunWindow, nullptr, 0, nullptr);
    if (thread != nullptr) CloseHandle(thread);
}
