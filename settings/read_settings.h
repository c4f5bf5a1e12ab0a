#pragma once

#include <string>

#include "settings/settings.h"
#include "ui/messages/error_reporter.h"

namespace tarn {

/// Whether "JRE Path" comes from the user's own settings file, `perUser` then: it exists, and the
/// application is no service. Product code and name and the service mode are read already.
bool UsesPerUserFile(const Settings& settings, const std::wstring& programPath,
                     std::wstring& perUser);

/// Reads the settings into `settings`. Returns false when the settings path cannot be derived or no
/// main class is named; the user has then been told, except when the executable's path holds
/// no '.'.
bool ReadSettings(const ErrorReporter& errors, Settings& settings);

}  // namespace tarn
