#pragma once

#include <string>

#include "jvm/jvm_instance.h"
#include "ui/messages/error_reporter.h"

namespace tarn {

/// Loads `jvm.dll` (`LoadLibraryW`) and finds its entry points. Returns false when the library or a
/// required entry point is missing; the user has then been told.
bool LoadJvmLibrary(const ErrorReporter& errors, const std::wstring& jvmLibraryPath,
                    JvmEntryPoints& entryPoints);

}  // namespace tarn
