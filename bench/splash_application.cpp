#include "bench/splash_application.h"

#include "bench/workspace.h"

namespace tarn::bench {

std::filesystem::path InstallSplashApp(const Workspace& workspace, const std::wstring& name,
                                       SplashKind kind) {
    std::wstring settings =
        L"[Application]\r\nOverride WorkingDir=Yes\r\n"
        L"[Java Runtime Environment]\r\nMain Class=bench.Stamp\r\nJRE Path=" +
        (workspace.runtimes / kSplashRuntime).wstring() + L"\r\n[Class Path]\r\nClass Path=" +
        (workspace.tools / L"bench.jar").wstring() + L"\r\n";
    if (kind != SplashKind::None) settings += L"[Display]\r\nSplash Screen=splash.png\r\n";
    if (kind == SplashKind::Native) settings += L"Preffer Native Splash Screen=Yes\r\n";
    const InstalledApp app = InstallApp(workspace, name, settings);
    std::filesystem::copy_file(workspace.tools / L"splash.png", app.folder / L"splash.png",
                               std::filesystem::copy_options::overwrite_existing);
    return app.program;
}

}  // namespace tarn::bench
