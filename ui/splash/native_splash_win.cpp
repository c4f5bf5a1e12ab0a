#include "ui/splash/native_splash.h"

#include "base/ansi_text.h"
#include "base/dynamic_library.h"
#include "base/paths.h"
#include "base/text.h"
#include "runtime/jvm_library.h"

namespace tarn {
namespace {

std::wstring FullPath(const std::wstring& path) {
    std::wstring full;
    DWORD length = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
    full.resize(length);
    length = GetFullPathNameW(path.c_str(), length, full.data(), nullptr);
    full.resize(length < full.size() ? length : 0);
    return full;
}

// The library needs java.dll beside it, which needs jvm.dll from a folder that is on no search path
// before the JVM is loaded. The first search leaves out the current directory and `Path`. The
// second one takes in `Path`, which contains the folders of the setting "System Path", and is the
// only one on a Windows 7 without the update for the flags.
HMODULE LoadWithDependencies(const std::wstring& path, const std::wstring& jvmLibraryPath) {
    const std::wstring fullPath = FullPath(path);
    const std::wstring jvmFolder(FolderOf(FullPath(jvmLibraryPath)));
    // A corrupt library leads to the launcher's own splash, without any message.
    const HardErrorSuppression suppression;
    // Added to both searches; in the second one it takes the place of the current directory. It
    // applies to the whole process, so it is undone at once.
    SetDllDirectoryW(jvmFolder.c_str());
    HMODULE library =
        LoadLibraryExW(fullPath.c_str(), nullptr,
                       LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR | LOAD_LIBRARY_SEARCH_DEFAULT_DIRS);
    if (library == nullptr)
        library = LoadLibraryExW(fullPath.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    SetDllDirectoryW(nullptr);
    return library;
}

}  // namespace

std::wstring FindNativeSplash(const std::wstring& jvmLibraryPath) {
    return FindInRuntimeBin(jvmLibraryPath, L"splashscreen.dll");
}

bool LoadNativeSplash(const std::wstring& path, const std::wstring& jvmLibraryPath,
                      NativeSplash& splash) {
    // Never unloaded: the library owns the window, and the application uses it through Java.
    const HMODULE library = LoadWithDependencies(path, jvmLibraryPath);
    if (library == nullptr) return false;

    splash.init = FindFunction<decltype(splash.init)>(library, "SplashInit");
    splash.loadFile = FindFunction<decltype(splash.loadFile)>(library, "SplashLoadFile");
    splash.setFileJarName =
        FindFunction<decltype(splash.setFileJarName)>(library, "SplashSetFileJarName");
    splash.close = FindFunction<decltype(splash.close)>(library, "SplashClose");
    return splash.init != nullptr && splash.loadFile != nullptr && splash.setFileJarName != nullptr;
}

bool StartNativeSplash(const std::wstring& imagePath, bool wanted,
                       const std::wstring& jvmLibraryPath, OneShotAction& launchFailureAction) {
    const std::wstring path = FindNativeSplash(jvmLibraryPath);
    if (!wanted || path.empty()) return false;
    NativeSplash splash;
    const bool usable = LoadNativeSplash(path, jvmLibraryPath, splash);
    launchFailureAction.Set(splash.close);
    if (!usable) return false;

    splash.init();
    const std::string ansiPath = ToThreadAnsi(imagePath, BestFit::No);
    splash.loadFile(ansiPath.c_str());
    splash.setFileJarName(ansiPath.c_str(), "");
    return true;
}

}  // namespace tarn
