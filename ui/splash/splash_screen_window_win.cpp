#include "ui/splash/splash_screen_window.h"

#include <cstdint>
#include <cstring>
#include <utility>

#include "ui/geometry/placement.h"
#include "ui/splash/splash_image.h"

namespace tarn {
namespace {

constexpr wchar_t kClassName[] = L"SplashScreenWindow";

// A jump, not a call: it needs no stack frame and so no unwind data, and the procedure returns
// straight to Windows.
struct [[gnu::packed]] ThunkCode {
    std::uint16_t loadFirstArgument = 0xB948;  // mov rcx, object
    void* object;
    std::uint16_t loadTarget = 0xB848;  // mov rax, target
    ObjectProcedure target;
    std::uint16_t jump = 0xE0FF;  // jmp rax
};
static_assert(sizeof(ThunkCode) == 22);

HINSTANCE ThisModule() {
    return GetModuleHandleW(nullptr);
}

PixelSize PrimaryScreen() {
    return {GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
}

}  // namespace

bool WindowThunk::Make(void* object, ObjectProcedure target) {
    if (code_) return true;
    UniquePages pages(
        VirtualAlloc(nullptr, sizeof(ThunkCode), MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE));
    if (!pages) return false;
    ThunkCode code;
    code.object = object;
    code.target = target;
    std::memcpy(pages.get(), &code, sizeof(code));
    // Never writable and executable at the same time.
    DWORD previous = 0;
    if (!VirtualProtect(pages.get(), sizeof(code), PAGE_EXECUTE_READ, &previous)) return false;
    FlushInstructionCache(GetCurrentProcess(), pages.get(), sizeof(code));
    code_ = std::move(pages);
    return true;
}

bool SplashScreenWindow::RegisterWindowClass(bool shadow) {
    // Called by the splash thread only, and a process has one splash.
    static ATOM registered = 0;
    if (registered != 0) return true;
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.style = CS_SAVEBITS | CS_DBLCLKS;
    if (shadow) windowClass.style |= CS_DROPSHADOW;
    windowClass.lpfnWndProc = StartProcedure;
    windowClass.hInstance = ThisModule();
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(INT_PTR{COLOR_WINDOW + 1});
    windowClass.lpszClassName = kClassName;
    registered = RegisterClassExW(&windowClass);
    if (registered == 0 && shadow) {
        // Some systems reject the style: docs/developer/compatibility.md.
        windowClass.style &= ~static_cast<UINT>(CS_DROPSHADOW);
        registered = RegisterClassExW(&windowClass);
    }
    return registered != 0;
}

HWND SplashScreenWindow::Create(const std::wstring& imagePath, bool shadow) {
    const bool registered = RegisterWindowClass(shadow);
    const UniqueGpImage image = DecodeImage(imagePath);
    const PixelRect place = CenteredOnScreen(PrimaryScreen(), ImageSize(image.get()));
    bitmap_ = RenderForScreen({.image = image.get()});
    if (!thunk_.Make(this, GetWindowProcedure())) {
        SetLastError(ERROR_OUTOFMEMORY);
        return nullptr;
    }
    if (!registered) return nullptr;
    return CreateWindowExW(WS_EX_TOOLWINDOW, kClassName, nullptr, WS_POPUP, place.left, place.top,
                           place.width(), place.height(), nullptr, nullptr, ThisModule(), this);
}

void SplashScreenWindow::Destroy() {
    if (window_ != nullptr) DestroyWindow(window_);
}

ObjectProcedure SplashScreenWindow::GetWindowProcedure() const {
    return WindowProcedure;
}

// The procedure of the class, for the messages before WM_NCCREATE; then the object's thunk replaces
// it.
LRESULT CALLBACK SplashScreenWindow::StartProcedure(HWND window, UINT message, WPARAM wParam,
                                                    LPARAM lParam) noexcept {
    if (message != WM_NCCREATE) return DefWindowProcW(window, message, wParam, lParam);
    const auto* const creation = reinterpret_cast<const CREATESTRUCTW*>(lParam);
    auto* const splash = static_cast<SplashScreenWindow*>(creation->lpCreateParams);
    splash->Attach(window);
    return splash->Receive(message, wParam, lParam);
}

LRESULT CALLBACK SplashScreenWindow::WindowProcedure(void* object, UINT message, WPARAM wParam,
                                                     LPARAM lParam) noexcept {
    return static_cast<SplashScreenWindow*>(object)->Receive(message, wParam, lParam);
}

void SplashScreenWindow::Attach(HWND window) {
    window_ = window;
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(thunk_.procedure()));
}

LRESULT SplashScreenWindow::Receive(UINT message, WPARAM wParam, LPARAM lParam) {
    // Restored afterwards, so that a nested message does not change the outer one's flag.
    const bool outerHandled = std::exchange(messageHandled_, true);
    LRESULT result = 0;
    if (!ProcessWindowMessage(message, wParam, lParam, result))
        result = CallWindowProcW(superProcedure_, window_, message, wParam, lParam);
    messageHandled_ = outerHandled;
    if (message == WM_NCDESTROY) OnFinalMessage(std::exchange(window_, nullptr));
    return result;
}

bool SplashScreenWindow::ProcessWindowMessage(UINT message, WPARAM, LPARAM, LRESULT& result) {
    switch (message) {
        case WM_ERASEBKGND:
            result = 1;  // the picture covers the window; erasing it first would flicker
            return true;
        case WM_PAINT:
            Paint();
            result = 0;
            return true;
        default:
            messageHandled_ = false;
            return false;
    }
}

void SplashScreenWindow::Paint() {
    PAINTSTRUCT paint;
    const HDC target = BeginPaint(window_, &paint);
    {
        const UniqueMemoryDc source(CreateCompatibleDC(target));
        BITMAP size{};
        GetObjectW(bitmap_.get(), sizeof(size), &size);
        const GdiSelection selection(source.get(), bitmap_.get());
        BitBlt(target, 0, 0, size.bmWidth, size.bmHeight, source.get(), 0, 0, SRCCOPY);
    }
    EndPaint(window_, &paint);
}

}  // namespace tarn
