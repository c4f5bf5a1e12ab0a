#pragma once

#include <string>

#include "base/one_shot_action.h"

namespace tarn {

/// The functions of the Java runtime's splash library that the launcher calls.
struct NativeSplash {
    void (*init)() = nullptr;
    void (*loadFile)(const char* ansiImagePath) = nullptr;
    void (*setFileJarName)(const char* ansiImagePath, const char* ansiJarPath) = nullptr;
    OneShotAction::Function close = nullptr;
};

/// Returns the path of the library, `splashscreen.dll` in the runtime's `bin` folder; empty when
/// the file does not exist.
std::wstring FindNativeSplash(const std::wstring& jvmLibraryPath);

/// Loads the library at `path` (`LoadLibraryExW`) and finds those of its functions that it has.
/// Returns whether it can show a picture. The library is never unloaded.
bool LoadNativeSplash(const std::wstring& path, const std::wstring& jvmLibraryPath,
                      NativeSplash& splash);

/// Shows the picture through the Java runtime's splash library when `wanted`. Returns whether the
/// library has taken it over; it is then the runtime's and the application's. The library's close
/// function goes into `launchFailureAction` even when another function is missing
/// (docs/developer/compatibility.md). Nothing is reported to the user.
bool StartNativeSplash(const std::wstring& imagePath, bool wanted,
                       const std::wstring& jvmLibraryPath, OneShotAction& launchFailureAction);

}  // namespace tarn
