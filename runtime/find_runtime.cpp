#include "runtime/find_runtime.h"

#include "base/files.h"
#include "base/module_path.h"
#include "base/text.h"
#include "runtime/jvm_bitness.h"
#include "runtime/jvm_library_path.h"

namespace tarn {

namespace {

/// Takes the runtime in `home` when it has a JVM of the wanted type.
bool TakeHome(const std::wstring& home, const RuntimeSearchPolicy& policy, RuntimeChoice& choice) {
    bool server = false;
    std::wstring path = SelectJvmLibrary(home, policy.jvmType, server);
    if (path.empty()) return false;
    choice.runtimeHome = home;
    choice.jvmLibraryPath = std::move(path);
    return true;
}

bool FindConfigured(const RuntimeSearchPolicy& policy, RuntimeChoice& choice) {
    return !policy.jrePath.empty() && TakeHome(WithEnding(policy.jrePath, L'\\'), policy, choice);
}

/// The home of the runtime shipped in or below the launcher's folder; empty when there is none.
std::wstring ShippedHome(const std::wstring& folder) {
    for (const wchar_t* below : {L"", L"jre64\\"}) {
        std::wstring home = folder + below;
        if (FileExists(home + L"bin\\java.dll")) return home;
    }
    return {};
}

bool FindShipped(const RuntimeSearchPolicy& policy, RuntimeChoice& choice) {
    const std::optional<std::wstring> folder = ModuleFolder();
    if (!folder || folder->empty()) return false;
    // Without a shipped runtime the empty home looks below the current directory.
    return TakeHome(ShippedHome(*folder), policy, choice);
}

}  // namespace

bool FindRuntime(const RuntimeSearchPolicy& policy, const std::wstring& pairProduct,
                 RuntimeChoice& choice) {
    if (FindConfigured(policy, choice)) {
        // Somebody may have pointed the setting at a runtime for the paired launcher.
        choice.pairedLaunch = NeedsPairedLauncher(choice.jvmLibraryPath, pairProduct);
        return true;
    }
    return FindShipped(policy, choice);
}

}  // namespace tarn
