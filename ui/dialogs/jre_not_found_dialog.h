#pragma once

#include <string>

#include "runtime/find_runtime.h"

namespace tarn {

/// The message of the dialog: the Java runtime that the application needs.
std::wstring JreNotFoundMessage(const RuntimeSearchPolicy& policy);

/// Shows the dialog "JRE Not Found", in which the user can browse for a runtime, and waits for its
/// end (`DialogBoxParamW`). `choice` receives the home that was browsed to last and its `jvm.dll`,
/// which is empty for a folder without one. Returns true when the user has confirmed. Returns false
/// when the dialog was cancelled, and also when it could not be created, with `ERROR_OUTOFMEMORY`
/// as the last error.
bool ShowJreNotFoundDialog(const RuntimeSearchPolicy& policy, RuntimeChoice& choice);

}  // namespace tarn
