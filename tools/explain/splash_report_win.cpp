#include "tools/explain/splash_report.h"

#include "base/arguments.h"
#include "base/paths.h"
#include "tools/common/text_encoding.h"
#include "ui/splash/native_splash.h"
#include "ui/splash/splash.h"

namespace tarn::tools {

std::optional<SplashReport> ReportSplash(const std::vector<std::wstring>& arguments,
                                         const std::wstring& jvmLibraryPath) {
    SplashReport report;
    if (SuppressesSplash(arguments)) {
        report.kind = "suppressed";
        return report;
    }
    SplashSettings settings;
    if (!ReadSplashSettings(settings)) return std::nullopt;
    if (settings.splashImagePath.empty()) return report;

    report.kind = "own";
    report.image = Utf8Of(settings.splashImagePath);
    report.imageExists = FileExists(settings.splashImagePath);
    report.shadow = settings.hasShadow();
    if (!settings.preferNative) return report;
    const std::wstring library = FindNativeSplash(jvmLibraryPath);
    NativeSplash functions;
    if (library.empty()) {
        report.nativeFailure = "no-library";
    } else if (!LoadNativeSplash(library, jvmLibraryPath, functions)) {
        report.nativeFailure = "unusable";
    } else {
        report.kind = "native";
    }
    return report;
}

}  // namespace tarn::tools
