#pragma once

#include <string>

#include "base/one_shot_action.h"

namespace tarn {

/// Shows the picture through the Java runtime's own splash library, `splashscreen.dll` in its
/// `bin` folder, when `wanted`. Returns whether the library took it over; it then belongs to the
/// runtime and the application. The library's close function goes into `launchFailureAction` as
/// soon as it is known, also when the library turns out unusable. Nothing is reported to the user.
bool StartNativeSplash(const std::wstring& imagePath, bool wanted,
                       const std::wstring& jvmLibraryPath, OneShotAction& launchFailureAction);

}  // namespace tarn
