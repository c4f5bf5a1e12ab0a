#include "runtime/find_runtime.h"

#include <type_traits>
#include <utility>

#include "base/paths.h"
#include "base/text.h"
#include "runtime/further_search.h"
#include "runtime/jvm_library.h"
#include "runtime/pe_header.h"
#include "runtime/registry_reader.h"
#include "runtime/registry_search.h"

namespace tarn {

namespace {

/// Returns the home of the runtime shipped in or below the launcher's folder; empty without one.
std::wstring ShippedHome(const std::wstring& folder) {
    for (const wchar_t* below : {L"", L"jre64\\"}) {
        std::wstring home = folder + below;
        if (FileExists(home + L"bin\\java.dll")) return home;
    }
    return {};
}

/// One search. Each source is an operation that returns whether it has filled the choice, and
/// `Find` calls them in their order. Without `kWithReport` no code for reports is generated.
template <bool kWithReport>
class RuntimeFinder {
  public:
    RuntimeFinder(const RuntimeSearchPolicy& policy, RuntimeChoice& choice, SearchReport* report)
        : policy_(policy), choice_(choice), report_(report) {}

    bool Find(const std::wstring& pairProduct) {
        return FindConfigured(pairProduct) || FindShipped() || FindRegistered(pairProduct);
    }

    bool FindFurther(std::wstring_view furtherSources) {
        for (;;) {
            const std::optional<FurtherSource> further = TakeFurtherSource(furtherSources);
            if (!further) return false;
            Source source{RuntimeSource::Further, SourceVerdict::NoCandidate};
            if constexpr (kWithReport) source.further = *further;
            RuntimeCandidate found;
            if (SearchFurther<kWithReport>(policy_, *further, found, ReportOf(source))) {
                TakeCandidate(found, source);
            }
            if (Report(std::move(source)) == SourceVerdict::Taken) return true;
        }
    }

  private:
    /// What is kept of a source without a report.
    struct SourceResult {
        RuntimeSource source;
        SourceVerdict verdict;
    };
    using Source = std::conditional_t<kWithReport, SourceReport, SourceResult>;

    bool FindConfigured(const std::wstring& pairProduct) {
        Source source{RuntimeSource::Configured, SourceVerdict::NotConfigured};
        if (!policy_.jrePath.empty()) TryHome(EnsureTrailing(policy_.jrePath, L'\\'), source);
        if (Report(std::move(source)) != SourceVerdict::Taken) return false;
        // Of this source only: docs/developer/compatibility.md.
        choice_.pairedLaunch = NeedsPairedLauncher(choice_.jvmLibraryPath, pairProduct);
        return true;
    }

    bool FindShipped() {
        Source source{RuntimeSource::Shipped, SourceVerdict::NoModuleFolder};
        const std::optional<std::wstring> folder = ModuleFolder();
        // An empty home is the current directory: docs/developer/compatibility.md.
        if (folder && !folder->empty()) TryHome(ShippedHome(*folder), source);
        return Report(std::move(source)) == SourceVerdict::Taken;
    }

    /// Searches the 64-bit view and, for the paired launcher, the 32-bit view.
    bool FindRegistered(const std::wstring& pairProduct) {
        const SourceVerdict own = SearchView(RuntimeSource::Registry, KEY_READ);
        if (own != SourceVerdict::NoCandidate) return own == SourceVerdict::Taken;
        if (pairProduct.empty()) {
            Report({RuntimeSource::PairedRegistry, SourceVerdict::NoPairProduct});
            return false;
        }
        choice_.pairedLaunch = SearchView(RuntimeSource::PairedRegistry,
                                          KEY_READ | KEY_WOW64_32KEY) == SourceVerdict::Taken;
        return choice_.pairedLaunch;
    }

    SourceVerdict SearchView(RuntimeSource kind, REGSAM access) {
        Source source{kind, SourceVerdict::NoCandidate};
        RegistryReader registry(access);
        auto found = SearchRegistry(policy_, registry, ReportOf(source));
        if (found) TakeCandidate(*found, source);
        return Report(std::move(source));
    }

    void TakeCandidate(RuntimeCandidate& found, Source& source) {
        choice_.version = found.version;
        // Selected again, because a root may have admitted the candidate with another JVM type.
        TryHome(std::move(found.home), source);
    }

    /// Fills the choice when the home has a JVM library of the wanted type.
    // NOLINTNEXTLINE(performance-unnecessary-value-param): a report takes it over
    void TryHome(std::wstring home, Source& source) {
        bool server = false;
        std::wstring path = SelectJvmLibrary(home, policy_.jvmType, server);
        source.verdict = path.empty() ? SourceVerdict::NoJvmLibrary : SourceVerdict::Taken;
        if (!path.empty()) {
            choice_.runtimeHome = home;
            choice_.jvmLibraryPath = std::move(path);
        }
        if constexpr (kWithReport) source.home = std::move(home);
    }

    /// The report to pass on; `nullptr` itself without one.
    static auto ReportOf([[maybe_unused]] Source& source) {
        if constexpr (kWithReport) {
            return &source;
        } else {
            return nullptr;
        }
    }

    SourceVerdict Report(Source&& source) {
        const SourceVerdict verdict = source.verdict;
        if constexpr (kWithReport) report_->sources.push_back(std::move(source));
        return verdict;
    }

    const RuntimeSearchPolicy& policy_;
    RuntimeChoice& choice_;
    [[maybe_unused]] SearchReport* const report_;
};

}  // namespace

bool FindRuntime(const RuntimeSearchPolicy& policy, const std::wstring& pairProduct,
                 RuntimeChoice& choice) {
    return RuntimeFinder<false>(policy, choice, nullptr).Find(pairProduct);
}

bool FindRuntime(const RuntimeSearchPolicy& policy, const std::wstring& pairProduct,
                 RuntimeChoice& choice, SearchReport& report) {
    return RuntimeFinder<true>(policy, choice, &report).Find(pairProduct);
}

bool FindFurtherRuntime(const RuntimeSearchPolicy& policy, std::wstring_view furtherSources,
                        RuntimeChoice& choice) {
    return RuntimeFinder<false>(policy, choice, nullptr).FindFurther(furtherSources);
}

bool FindFurtherRuntime(const RuntimeSearchPolicy& policy, std::wstring_view furtherSources,
                        RuntimeChoice& choice, SearchReport& report) {
    return RuntimeFinder<true>(policy, choice, &report).FindFurther(furtherSources);
}

}  // namespace tarn
