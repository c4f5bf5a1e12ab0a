#pragma once

#include <string>
#include <string_view>

#include "runtime/runtime_version.h"
#include "runtime/search_policy.h"
#include "runtime/search_report.h"

namespace tarn {

/// The runtime that a launch uses.
struct RuntimeChoice {
    /// Ends in a backslash; empty when the library is below the current directory.
    std::wstring runtimeHome;
    /// Path of the `jvm.dll`; empty until one is found.
    std::wstring jvmLibraryPath;
    /// All zeros unless the runtime came from the registry or from a further source.
    RuntimeVersion version;
    /// The `jvm.dll` is a 32-bit one, which only the paired launcher can load.
    bool pairedLaunch = false;
};

/// Searches the sources in their order: the configured "JRE Path", the runtime shipped with the
/// launcher, the registry (with a "Pair Product" its 32-bit view, too). The first source with a
/// `jvm.dll` fills `choice` and ends the search. Returns false when no source has one. Shows no
/// message.
bool FindRuntime(const RuntimeSearchPolicy& policy, const std::wstring& pairProduct,
                 RuntimeChoice& choice);

/// Performs the same search and appends what each source, root and subkey yielded to `report`.
bool FindRuntime(const RuntimeSearchPolicy& policy, const std::wstring& pairProduct,
                 RuntimeChoice& choice, SearchReport& report);

/// Searches the sources that a "Further Sources" text names, in its order, after `FindRuntime` has
/// failed. The first one with an acceptable runtime fills `choice` and ends the search. Returns
/// false when none has one.
bool FindFurtherRuntime(const RuntimeSearchPolicy& policy, std::wstring_view furtherSources,
                        RuntimeChoice& choice);

/// Performs the same search and appends what each source yielded to `report`.
bool FindFurtherRuntime(const RuntimeSearchPolicy& policy, std::wstring_view furtherSources,
                        RuntimeChoice& choice, SearchReport& report);

}  // namespace tarn
