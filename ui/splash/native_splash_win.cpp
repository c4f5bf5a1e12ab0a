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

// Adds a folder to the search for libraries while an object lives. Only loads with the
// LOAD_LIBRARY_SEARCH flags see it, so nothing else in the process changes.
class LibraryFolder {
  public:
    explicit LibraryFolder(const std::wstring& folder) {
        // Found at run time: a Windows 7 without the update for the flags has neither function.
        const HMODULE kernel = GetModuleHandleW(L"kernel32.dll");
        const auto add = FindFunction<decltype(&AddDllDirectory)>(kernel, "AddDllDirectory");
        remove_ = FindFunction<decltype(&RemoveDllDirectory)>(kernel, "RemoveDllDirectory");
        if (add != nullptr && remove_ != nullptr) cookie_ = add(folder.c_str());
    }
    LibraryFolder(const LibraryFolder&) = delete;
    LibraryFolder& operator=(const LibraryFolder&) = delete;
    ~LibraryFolder() {
        if (cookie_ != nullptr) remove_(cookie_);
    }

  private:
    decltype(&RemoveDllDirectory) remove_ = nullptr;
    DLL_DIRECTORY_COOKIE cookie_ = nullptr;
};

// Searches the library's folder, `jvmFolder` and the folders of Windows and of the launcher.
HMODULE LoadWithFlags(const std::wstring& path, const std::wstring& jvmFolder) {
    const LibraryFolder folder(jvmFolder);
    return LoadLibraryExW(path.c_str(), nullptr,
                          LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR | LOAD_LIBRARY_SEARCH_DEFAULT_DIRS);
}

// Searches the library's folder, `jvmFolder`, the folders of Windows and `Path`, which contains the
// folders of the setting "System Path". `SetDllDirectoryW` puts `jvmFolder` in the place of the
// current directory and is undone at once, because it applies to every load of the process.
HMODULE LoadAlongPath(const std::wstring& path, const std::wstring& jvmFolder) {
    SetDllDirectoryW(jvmFolder.c_str());
    const HMODULE library = LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    SetDllDirectoryW(nullptr);
    return library;
}

// The library needs java.dll beside it, which needs jvm.dll from a folder that is on no search path
// before the JVM is loaded. The flags search neither `Path` nor are they known to a Windows 7
// without their update; both errors lead to the older search.
HMODULE LoadWithDependencies(const std::wstring& path, const std::wstring& jvmLibraryPath) {
    const std::wstring fullPath = FullPath(path);
    const std::wstring jvmFolder(FolderOf(FullPath(jvmLibraryPath)));
    // A corrupt library leads to the launcher's own splash, without any message.
    const HardErrorSuppression suppression;
    const HMODULE library = LoadWithFlags(fullPath, jvmFolder);
    if (library != nullptr) return library;
    const DWORD error = GetLastError();
    if (error != ERROR_MOD_NOT_FOUND && error != ERROR_INVALID_PARAMETER) return nullptr;
    return LoadAlongPath(fullPath, jvmFolder);
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
