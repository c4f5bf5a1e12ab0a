#include "ui/splash/splash.h"

#include <optional>

#include "base/thread.h"
#include "settings/ini_file.h"
#include "settings/keys.h"
#include "settings/settings_paths.h"
#include "ui/splash/native_splash.h"

namespace tarn {

bool ReadSplashSettings(SplashSettings& settings) {
    std::optional<std::wstring> settingsPath = MainSettingsPath();
    if (!settingsPath) return false;
    const IniFile file(std::move(*settingsPath));
    settings.splashImagePath = file.GetValue(keys::kDisplay, keys::kSplashScreen);
    if (settings.splashImagePath.empty()) return true;
    settings.splashShadow = file.GetValue(keys::kDisplay, keys::kSplashScreenShadow);
    settings.preferNative = IsYes(file.GetValue(keys::kDisplay, keys::kPreferNativeSplashScreen));
    return true;
}

bool Splash::ShowSplash(const std::wstring& jvmLibraryPath, OneShotAction& launchFailureAction) {
    if (!ReadSplashSettings(settings)) return false;
    if (settings.splashImagePath.empty()) return true;
    const bool isNative = StartNativeSplash(settings.splashImagePath, settings.preferNative,
                                            jvmLibraryPath, launchFailureAction);
    if (!isNative) StartThread();
    return true;
}

void Splash::StartThread() {
    splashWindow = std::make_unique<SplashScreenWindow>();
    splashThread.reset(CreateThread(nullptr, 0, SplashThreadProc, this, 0, &splashThreadId));
    // A thread that cannot be started is no splash: there is nothing to close or to wait for.
    if (!splashThread) splashWindow.reset();
}

DWORD WINAPI Splash::SplashThreadProc(void* splash) noexcept {
    return static_cast<Splash*>(splash)->RunThread();
}

DWORD Splash::RunThread() {
    const HWND window = splashWindow->Create(settings.splashImagePath, settings.hasShadow());
    splashWindowHandle.store(window, std::memory_order_relaxed);
    ShowWindow(window, SW_SHOWNORMAL);
    UpdateWindow(window);
    MSG message{};
    while (const BOOL got = GetMessageW(&message, nullptr, 0, 0)) {
        if (got == -1) continue;  // an error does not end the splash
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    splashWindow->Destroy();
    return 0;
}

void Splash::CloseSplash() {
    if (!splashWindow) return;
    QuitAndJoin(splashThread.get(), splashThreadId);
    splashThread.reset();
    splashWindow.reset();
}

}  // namespace tarn
