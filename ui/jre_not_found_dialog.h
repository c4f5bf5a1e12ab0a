#pragma once

#include <string>

#include "runtime/find_runtime.h"
#include "settings/settings.h"

namespace tarn {

/// What that dialog tells: which runtime the application needs.
std::wstring JreNotFoundMessage(const RuntimeSearchPolicy& policy);

/// Tells the user that no runtime was found and lets him browse for one. Returns true when he
/// confirmed a folder: `choice` then has its `jvm.dll`, and the folder stands in the settings for
/// the next start. False ends the launch; the dialog was the message.
bool ShowJreNotFound(const Settings& settings, RuntimeChoice& choice);

}  // namespace tarn
