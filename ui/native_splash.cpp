#include "ui/native_splash.h"

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

// A folder that libraries look for their neighbours in, as long as this lives. Only loads that ask
// for such folders see it, so nothing else in the process changes.
class LibraryFolder {
  public:
    explicit LibraryFolder(const std::wstring& folder) {
        // Looked up, for the oldest Windows that the launcher starts on has them only after an
        // update.
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

// The library needs java.dll, which lies beside it, and that one needs jvm.dll, which lies in a
// folder of its own and is on no search path before the JVM is loaded.
HMODULE LoadWithNeighbours(const std::wstring& path, const std::wstring& jvmLibraryPath) {
    const LibraryFolder jvmFolder{std::wstring(FolderOf(FullPath(jvmLibraryPath)))};
    const std::wstring fullPath = FullPath(path);
    // A corrupt library leads to the launcher's own splash, without any message.
    const HardErrorSuppression suppression;
    return LoadLibraryExW(fullPath.c_str(), nullptr,
                          LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR | LOAD_LIBRARY_SEARCH_DEFAULT_DIRS);
}

}  // namespace

std::wstring FindNativeSplash(const std::wstring& jvmLibraryPath) {
    return FindInRuntimeBin(jvmLibraryPath, L"splashscreen.dll");
}

bool LoadNativeSplash(const std::wstring& path, const std::wstring& jvmLibraryPath,
                      NativeSplash& splash) {
    // Never unloaded: its window and the application's view of it live in there.
    const HMODULE library = LoadWithNeighbours(path, jvmLibraryPath);
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
    splash.loadFile(ToThreadAnsi(imagePath).c_str());
    splash.setFileJarName(ToThreadAnsi(imagePath).c_str(), "");
    return true;
}

}  // namespace tarn
