#include "runtime/find_runtime.h"

#include <utility>

#include "base/files.h"
#include "base/module_path.h"
#include "base/text.h"
#include "runtime/jvm_bitness.h"
#include "runtime/jvm_library_path.h"
#include "runtime/registry_search.h"
#include "runtime/registry_view.h"

namespace tarn {

namespace {

/// Takes the runtime in the source's home when it has a JVM of the wanted type.
void TakeHome(const RuntimeSearchPolicy& policy, RuntimeChoice& choice, SourceReport& source) {
    bool server = false;
    std::wstring path = SelectJvmLibrary(source.home, policy.jvmType, server);
    if (path.empty()) {
        source.verdict = SourceVerdict::NoJvmLibrary;
        return;
    }
    choice.runtimeHome = source.home;
    choice.jvmLibraryPath = std::move(path);
    source.verdict = SourceVerdict::Taken;
}

SourceReport FindConfigured(const RuntimeSearchPolicy& policy, RuntimeChoice& choice) {
    SourceReport source{RuntimeSource::Configured, SourceVerdict::NotConfigured};
    if (policy.jrePath.empty()) return source;
    source.home = WithEnding(policy.jrePath, L'\\');
    TakeHome(policy, choice, source);
    return source;
}

/// The home of the runtime shipped in or below the launcher's folder; empty when there is none.
std::wstring ShippedHome(const std::wstring& folder) {
    for (const wchar_t* below : {L"", L"jre64\\"}) {
        std::wstring home = folder + below;
        if (FileExists(home + L"bin\\java.dll")) return home;
    }
    return {};
}

SourceReport FindShipped(const RuntimeSearchPolicy& policy, RuntimeChoice& choice) {
    SourceReport source{RuntimeSource::Shipped, SourceVerdict::NoModuleFolder};
    const std::optional<std::wstring> folder = ModuleFolder();
    if (!folder || folder->empty()) return source;
    // Without a shipped runtime the empty home looks below the current directory.
    source.home = ShippedHome(*folder);
    TakeHome(policy, choice, source);
    return source;
}

/// `details` asks for a word on every root and subkey.
SourceReport FindRegistered(RuntimeSource kind, REGSAM access, const RuntimeSearchPolicy& policy,
                            bool details, RuntimeChoice& choice) {
    SourceReport source{kind, SourceVerdict::NoCandidate};
    RegistryView registry(access);
    const std::optional<RuntimeCandidate> found =
        SearchRegistry(policy, registry, details ? &source : nullptr);
    if (!found) return source;
    source.home = found->home;
    choice.version = found->version;
    // Looked for once more: the type that admitted the candidate need not be the one that is
    // loaded.
    TakeHome(policy, choice, source);
    return source;
}

}  // namespace

bool FindRuntime(const RuntimeSearchPolicy& policy, const std::wstring& pairProduct,
                 RuntimeChoice& choice, SearchReport* report) {
    const auto note = [report](SourceReport&& source) {
        const SourceVerdict verdict = source.verdict;
        if (report != nullptr) report->sources.push_back(std::move(source));
        return verdict;
    };
    const bool details = report != nullptr;

    if (note(FindConfigured(policy, choice)) == SourceVerdict::Taken) {
        // The setting may name a runtime that only the paired launcher can load.
        choice.pairedLaunch = NeedsPairedLauncher(choice.jvmLibraryPath, pairProduct);
        return true;
    }
    if (note(FindShipped(policy, choice)) == SourceVerdict::Taken) return true;

    const SourceVerdict own =
        note(FindRegistered(RuntimeSource::Registry, KEY_READ, policy, details, choice));
    if (own != SourceVerdict::NoCandidate) return own == SourceVerdict::Taken;
    if (pairProduct.empty()) {
        note({RuntimeSource::PairedRegistry, SourceVerdict::NoPairProduct});
        return false;
    }
    const SourceVerdict paired = note(FindRegistered(
        RuntimeSource::PairedRegistry, KEY_READ | KEY_WOW64_32KEY, policy, details, choice));
    choice.pairedLaunch = paired == SourceVerdict::Taken;
    return choice.pairedLaunch;
}

}  // namespace tarn
