#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "runtime/choose_candidate.h"
#include "runtime/registry_roots.h"

namespace tarn {

/// What became of a registry subkey that was looked at.
enum class SubkeyVerdict {
    Chosen,
    RankedBelow,   ///< would do, but another candidate was chosen
    AboveMaximum,  ///< newer than "Maximum Version"
    BelowMinimum,  ///< older than "Minimum Version"
    NotOpened,     ///< the key cannot be read
    NoJavaHome,    ///< "JavaHome" is missing or empty
    NoJvmLibrary,  ///< the home has no `jvm.dll` of the wanted type
};

struct SubkeyReport {
    std::wstring name;
    SubkeyVerdict verdict = SubkeyVerdict::NotOpened;
    /// As far as it was looked at: the version always, the home from "JavaHome" on, the flags for
    /// a candidate only.
    RuntimeCandidate runtime;
    /// For a candidate: its place among all of this search, 0 for the best.
    std::size_t rank = 0;
    /// For a candidate that was not chosen: what put the chosen one before it.
    ChoiceReason reason = ChoiceReason::FoundEarlier;
};

/// What became of a registry root.
enum class RootVerdict {
    Searched,
    KindNotWanted,       ///< "JVM Source" leaves the kind out
    ProviderNotAllowed,  ///< "VM Provider" leaves the provider out
    NotOpened,           ///< there is no such key, or it cannot be read
};

struct RootReport {
    const RegistryRoot* root = nullptr;
    RootVerdict verdict = RootVerdict::Searched;
    std::vector<SubkeyReport> subkeys;
};

enum class RuntimeSource {
    Configured,      ///< "JRE Path"
    Shipped,         ///< beside the launcher, or below the current directory
    Registry,        ///< the registry as a 64-bit process sees it
    PairedRegistry,  ///< the registry as a 32-bit process sees it
};

/// What became of a source.
enum class SourceVerdict {
    Taken,
    NotConfigured,   ///< "JRE Path" is empty
    NoModuleFolder,  ///< the launcher's own folder is unknown
    NoJvmLibrary,    ///< the home has no `jvm.dll` of the wanted type
    NoCandidate,     ///< no registered runtime will do
    NoPairProduct,   ///< a 32-bit runtime would be of no use
};

struct SourceReport {
    RuntimeSource source = RuntimeSource::Configured;
    SourceVerdict verdict = SourceVerdict::Taken;
    /// The home that was looked at or chosen. Empty for a library below the current directory.
    std::wstring home = {};
    /// For the registry: every root, in the order of the search.
    std::vector<RootReport> roots = {};
    /// For the registry: which of the policy's preferred versions chose; empty when none did.
    std::optional<std::size_t> preferred = {};
};

/// How a search went: each source that was asked, in order. The last one is the one that was taken,
/// unless nothing was found.
struct SearchReport {
    std::vector<SourceReport> sources;
};

}  // namespace tarn
