#pragma once

#include <optional>
#include <string>

#include "runtime/search_policy.h"
#include "settings/layered_settings.h"

namespace tarn {

class ErrorReporter;

/// The settings of this application, read once at start. Keys that only one later stage needs
/// (class path, splash and others) are read by that stage.
struct Settings {
    std::wstring productCode;
    std::wstring productName;
    /// "Application Type" is "service": no single instance, and the JVM is destroyed after `main`
    /// has returned, which waits for the application's non-daemon threads.
    bool serviceMode = false;
    /// "Omit Service Name" is not empty. Required but without effect:
    /// docs/developer/compatibility.md.
    bool omitServiceName = false;
    bool failureCheck = false;
    bool overrideWorkingDir = false;
    /// The program started instead when the chosen `jvm.dll` is a 32-bit library.
    std::wstring pairProduct;
    bool pairReturnCode = false;
    /// The main class, with '/' as package separator.
    std::wstring mainClass;
    std::wstring systemPath;
    std::wstring libraryPath;
    RuntimeSearchPolicy policy;
    /// The reader of the settings, for a key that only a launch without a runtime needs. Set by
    /// `ReadSettings`.
    std::optional<LayeredSettings> reader;
};

/// Reads the settings of the launcher's executable into `settings`. Returns false when the path of
/// the settings file cannot be derived or "Main Class" is empty. The failure has then been
/// reported, unless the cause is an executable path without a '.'.
bool ReadSettings(const ErrorReporter& errors, Settings& settings);

/// Returns the value of "Further Sources". It is read after all other sources of a runtime have
/// failed: in a file with a "+" section reading it costs a profile call.
std::wstring ReadFurtherSources(const Settings& settings);

/// Returns whether "JRE Path" is read from the per-user settings file, and stores that file's path
/// in `perUser`: the file exists and the application is not a service. Product name, product code
/// and service mode must have been read.
bool UsesPerUserFile(const Settings& settings, const std::wstring& programPath,
                     std::wstring& perUser);

}  // namespace tarn
