#include "ui/splash.h"

#include <optional>

#include "base/text.h"
#include "settings/ini_file.h"
#include "settings/keys.h"
#include "settings/settings_paths.h"
#include "ui/native_splash.h"

namespace tarn {

bool ReadSplashSettings(SplashSettings& splash) {
    std::optional<std::wstring> settingsPath = MainSettingsPath();
    if (!settingsPath) return false;
    const IniFile settings(std::move(*settingsPath));
    splash.imagePath = settings.GetValue(keys::kDisplay, keys::kSplashScreen);
    if (splash.imagePath.empty()) return true;
    splash.shadow = settings.GetValue(keys::kDisplay, keys::kSplashScreenShadow) == L"true";
    splash.preferNative = EqualsIgnoringCase(
        settings.GetValue(keys::kDisplay, keys::kPreferNativeSplashScreen), L"Yes");
    return true;
}

bool Splash::Show(const std::wstring& jvmLibraryPath, OneShotAction& launchFailureAction) {
    if (!ReadSplashSettings(settings_)) return false;
    if (settings_.imagePath.empty()) return true;
    if (!StartNativeSplash(settings_.imagePath, settings_.preferNative, jvmLibraryPath,
                           launchFailureAction)) {
        StartThread();
    }
    return true;
}

void Splash::StartThread() {
    splashWindow_ = std::make_unique<SplashScreenWindow>();
    splashThread_.reset(CreateThread(nullptr, 0, SplashThreadProc, this, 0, &splashThreadId_));
    // Without a thread there is no splash, and nothing that Close could wait for.
    if (!splashThread_) splashWindow_.reset();
}

DWORD WINAPI Splash::SplashThreadProc(void* splash) noexcept {
    return static_cast<Splash*>(splash)->RunThread();
}

DWORD Splash::RunThread() {
    const HWND window = splashWindow_->Create(settings_.imagePath, settings_.shadow);
    splashWindowHandle_.store(window, std::memory_order_relaxed);
    ShowWindow(window, SW_SHOWNORMAL);
    UpdateWindow(window);
    MSG message{};
    while (const BOOL got = GetMessageW(&message, nullptr, 0, 0)) {
        if (got == -1) continue;  // no message, but no reason to take the picture down either
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    splashWindow_->Destroy();
    return 0;
}

void Splash::Close() {
    if (!splashWindow_) return;
    // Without a pause: a message that is posted before the thread has its queue is lost, so it is
    // posted until the thread has ended.
    DWORD exitCode = STILL_ACTIVE;
    do {
        PostThreadMessageW(splashThreadId_, WM_QUIT, 0, 0);
        GetExitCodeThread(splashThread_.get(), &exitCode);
    } while (exitCode == STILL_ACTIVE);
    splashThread_.reset();
    splashWindow_.reset();
}

}  // namespace tarn
