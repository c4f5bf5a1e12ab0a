#pragma once

#include <string>

#include "runtime/search_policy.h"

namespace tarn {

/// What the settings files say about this application, read once at start. The keys that only one
/// later step needs (class path, splash and the like) are read by that step.
struct Settings {
    std::wstring productCode;
    std::wstring productName;
    /// "Application Type" is "service": no single instance, and the JVM is destroyed, which waits
    /// for the application's threads, when `main` has returned.
    bool serviceMode = false;
    /// Read and kept for the application's author; nothing here acts on it.
    bool omitServiceName = false;
    bool failureCheck = false;
    bool overrideWorkingDir = false;
    /// Program to start instead when the chosen `jvm.dll` is a 32-bit one.
    std::wstring pairProduct;
    bool pairReturnCode = false;
    /// With '/' between packages and class.
    std::wstring mainClass;
    std::wstring systemPath;
    std::wstring libraryPath;
    RuntimeSearchPolicy policy;
};

}  // namespace tarn
