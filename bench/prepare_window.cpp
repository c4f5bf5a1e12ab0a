#include "base/windows.h"
#include "bench/prepare_host.h"

namespace {

// As large as the picture that the splash shows.
constexpr int kWidth = 600;
constexpr int kHeight = 400;

DWORD WINAPI ShowEmptyWindow(void*) noexcept {
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

void PrepareHost() {
    // It goes with the process.
    HANDLE thread = CreateThread(nullptr, 0, ShowEmptyWindow, nullptr, 0, nullptr);
    if (thread != nullptr) CloseHandle(thread);
}
