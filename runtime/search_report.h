#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "runtime/choose_candidate.h"
#include "runtime/further_sources.h"
#include "runtime/registry_roots.h"

namespace tarn {

/// The result of examining a registry subkey, or a runtime that a further source names.
enum class SubkeyVerdict {
    Chosen,
    RankedBelow,   ///< a candidate, but another one was chosen
    AboveMaximum,  ///< newer than "Maximum Version"
    BelowMinimum,  ///< older than "Minimum Version"
    NotOpened,     ///< the key cannot be opened
    NoJavaHome,    ///< "JavaHome" is missing or empty
    NoJvmLibrary,  ///< the home has no `jvm.dll` of the wanted type
    // Of further sources only.
    NotOnDrive,      ///< the home is no absolute path on a drive
    KindNotWanted,   ///< "JVM Source" excludes the kind
    OtherMachine,    ///< this process cannot load the `jvm.dll`
    UnknownVersion,  ///< a bound is set, and the runtime states no version
};

/// One examined subkey or runtime.
struct SubkeyReport {
    /// For a further source: the key, folder or variable that names the runtime.
    std::wstring name;
    SubkeyVerdict verdict = SubkeyVerdict::NotOpened;
    /// Filled until a test failed: the version always, the home when "JavaHome" is present, the
    /// flags for a candidate only.
    RuntimeCandidate runtime;
    /// For a candidate: its index in the ranked list of this search, 0 for the best.
    std::size_t rank = 0;
    /// For a candidate that was not chosen: the rule that put the chosen one before it.
    ChoiceReason reason = ChoiceReason::FoundEarlier;
};

/// The result of visiting a registry root.
enum class RootVerdict {
    Searched,
    KindNotWanted,       ///< "JVM Source" excludes the kind
    ProviderNotAllowed,  ///< "VM Provider" excludes the provider
    NotOpened,           ///< the key does not exist or cannot be opened
};

/// One root with its subkeys in the order of their enumeration.
struct RootReport {
    const RegistryRoot* root = nullptr;
    RootVerdict verdict = RootVerdict::Searched;
    std::vector<SubkeyReport> subkeys;
};

/// The sources in the order of the search.
enum class RuntimeSource {
    Configured,      ///< "JRE Path"
    Shipped,         ///< with the launcher, or below the current directory
    Registry,        ///< the 64-bit view of the registry
    PairedRegistry,  ///< the 32-bit view of the registry, for the paired launcher
    Further,         ///< one of "Further Sources"
};

/// The result of a source.
enum class SourceVerdict {
    Taken,
    NotConfigured,   ///< "JRE Path" is empty
    NoModuleFolder,  ///< the launcher's folder is unknown
    NoJvmLibrary,    ///< the home has no `jvm.dll` of the wanted type
    NoCandidate,     ///< no runtime of the registry or of the further source is a candidate
    NoPairProduct,   ///< there is no launcher for a 32-bit runtime
};

/// One source that was searched.
struct SourceReport {
    RuntimeSource source = RuntimeSource::Configured;
    SourceVerdict verdict = SourceVerdict::Taken;
    /// The home that was tried. Empty for the current directory.
    std::wstring home = {};
    /// For the registry: all roots in the order of the search.
    std::vector<RootReport> roots = {};
    /// For a further source: which one it is, and the runtimes in the order of their discovery.
    FurtherSource further = FurtherSource::Vendors;
    std::vector<SubkeyReport> candidates = {};
    /// For the registry and further sources: index of the preferred version that selected the
    /// candidate, if any.
    std::optional<std::size_t> preferred = {};
};

/// The course of a search: its sources in order. If the search succeeded, the last one is the
/// source of the runtime.
struct SearchReport {
    std::vector<SourceReport> sources;
};

}  // namespace tarn
