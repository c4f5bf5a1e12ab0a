#pragma once

#include <string>

#include "settings/settings.h"

namespace tarn {

/// Writes the folder that the user has chosen as "JRE Path", where the next start looks first: into
/// the user's own settings file, whose folders are made, or for a service into the settings file
/// beside the executable; with "Pair Product" also into the paired launcher's file of the same
/// kind. A failure is not reported: the user would only be asked again.
void RememberRuntime(const Settings& settings, const std::wstring& folder);

}  // namespace tarn
