#pragma once

#include <string>

#include "base/one_shot_action.h"

namespace tarn {

/// The functions of the Java runtime's own splash library that the launcher calls.
struct NativeSplash {
    void (*init)() = nullptr;
    void (*loadFile)(const char* ansiImagePath) = nullptr;
    void (*setFileJarName)(const char* ansiImagePath, const char* ansiJarPath) = nullptr;
    OneShotAction::Function close = nullptr;
};

/// The path of that library, `splashscreen.dll` in the runtime's `bin` folder; empty when it is not
/// there.
std::wstring FindNativeSplash(const std::wstring& jvmLibraryPath);

/// Loads the library at `path` and finds its functions, as far as it has them; calls none. Returns
/// whether it can show a picture.
bool LoadNativeSplash(const std::wstring& path, const std::wstring& jvmLibraryPath,
                      NativeSplash& splash);

/// Shows the picture through the Java runtime's own splash library, `splashscreen.dll` in its
/// `bin` folder, when `wanted`. Returns whether the library took it over; it then belongs to the
/// runtime and the application. The library's close function goes into `launchFailureAction` as
/// soon as it is known, also when the library turns out unusable. Nothing is reported to the user.
bool StartNativeSplash(const std::wstring& imagePath, bool wanted,
                       const std::wstring& jvmLibraryPath, OneShotAction& launchFailureAction);

}  // namespace tarn
