#include "runtime/find_runtime.h"

#include <utility>

#include "base/paths.h"
#include "base/text.h"
#include "runtime/pe_header.h"
#include "runtime/jvm_library.h"
#include "runtime/registry_search.h"
#include "runtime/registry_reader.h"

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
    source.home = EnsureTrailing(policy.jrePath, L'\\');
    TakeHome(policy, choice, source);
    return source;
}

/// The home of the runtime shipped in or below the launcher's folder; empty when there is none.
std::wstring ShippedHome(const std::wstring& folder) {
    for (const wchar_t* below : {L"", L"jre64\\"}) {
        std::wstring home = Concat({folder, below});
        if (FileExists(Concat({home, L"bin\\java.dll"}))) return home;
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

/// `kWithReport` asks for a word on every root and subkey.
template <bool kWithReport>
SourceReport FindRegistered(RuntimeSource kind, REGSAM access, const RuntimeSearchPolicy& policy,
                            RuntimeChoice& choice) {
    SourceReport source{kind, SourceVerdict::NoCandidate};
    RegistryReader registry(access);
    const std::optional<RuntimeCandidate> found =
        SearchRegistry(policy, registry, kWithReport ? &source : nullptr);
    if (!found) return source;
    source.home = found->home;
    choice.version = found->version;
    // Looked for once more: the type that admitted the candidate need not be the one that is
    // loaded.
    TakeHome(policy, choice, source);
    return source;
}

/// Written once for both: a program that asks for no report has none of the code for it.
template <bool kReport>
bool Find(const RuntimeSearchPolicy& policy, const std::wstring& pairProduct, RuntimeChoice& choice,
          [[maybe_unused]] SearchReport* report) {
    const auto note = [&](SourceReport&& source) {
        const SourceVerdict verdict = source.verdict;
        if constexpr (kReport) report->sources.push_back(std::move(source));
        return verdict;
    };

    if (note(FindConfigured(policy, choice)) == SourceVerdict::Taken) {
        // The setting may name a runtime that only the paired launcher can load.
        choice.pairedLaunch = NeedsPairedLauncher(choice.jvmLibraryPath, pairProduct);
        return true;
    }
    if (note(FindShipped(policy, choice)) == SourceVerdict::Taken) return true;

    const SourceVerdict own =
        note(FindRegistered<kReport>(RuntimeSource::Registry, KEY_READ, policy, choice));
    if (own != SourceVerdict::NoCandidate) return own == SourceVerdict::Taken;
    if (pairProduct.empty()) {
        note({RuntimeSource::PairedRegistry, SourceVerdict::NoPairProduct});
        return false;
    }
    const SourceVerdict paired = note(FindRegistered<kReport>(
        RuntimeSource::PairedRegistry, KEY_READ | KEY_WOW64_32KEY, policy, choice));
    choice.pairedLaunch = paired == SourceVerdict::Taken;
    return choice.pairedLaunch;
}

}  // namespace

bool FindRuntime(const RuntimeSearchPolicy& policy, const std::wstring& pairProduct,
                 RuntimeChoice& choice) {
    return Find<false>(policy, pairProduct, choice, nullptr);
}

bool FindRuntime(const RuntimeSearchPolicy& policy, const std::wstring& pairProduct,
                 RuntimeChoice& choice, SearchReport& report) {
    return Find<true>(policy, pairProduct, choice, &report);
}

}  // namespace tarn
