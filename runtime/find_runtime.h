#pragma once

#include <string>

#include "runtime/runtime_version.h"
#include "runtime/search_policy.h"
#include "runtime/search_report.h"

namespace tarn {

/// The runtime that this launch uses.
struct RuntimeChoice {
    /// Ends in a backslash; empty for a library found below the current directory.
    std::wstring runtimeHome;
    /// Full path of the `jvm.dll`, empty until one is found.
    std::wstring jvmLibraryPath;
    /// All zeros unless the runtime came from the registry.
    RuntimeVersion version;
    /// The `jvm.dll` is a 32-bit one, so the paired launcher has to start it.
    bool pairedLaunch = false;
};

/// Asks the sources in their order: the configured "JRE Path", the runtime shipped beside the
/// launcher, the registry. The first that yields a `jvm.dll` fills `choice`, whether it is one for
/// the paired launcher included. Returns false when none does. Nothing on the way is reported to
/// the user.
bool FindRuntime(const RuntimeSearchPolicy& policy, const std::wstring& pairProduct,
                 RuntimeChoice& choice);

/// The same search, for a caller who wants to know how it went.
bool FindRuntime(const RuntimeSearchPolicy& policy, const std::wstring& pairProduct,
                 RuntimeChoice& choice, SearchReport& report);

}  // namespace tarn
