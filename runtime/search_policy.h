#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "runtime/runtime_version.h"

namespace tarn {

/// Selects one of a runtime's JVM libraries.
enum class JvmType {
    Default,      ///< any; a client JVM precedes a server JVM
    Server,       ///< only the server JVM
    FavorServer,  ///< the server JVM if there is one
};

/// The settings of section "Java Runtime Environment" that control the search for a runtime.
struct RuntimeSearchPolicy {
    JvmType jvmType = JvmType::Default;
    /// Runtimes of the kind that is not wanted are searched too, and ranked below the others.
    bool sourceFavouring = true;
    bool jdkWanted = true;
    bool jreWanted = true;
    bool sunAllowed = true;
    bool sunFavored = true;
    bool jrockitAllowed = false;
    bool jrockitFavored = false;
    bool ibmAllowed = false;
    bool ibmFavored = false;
    RuntimeVersion minimum;
    RuntimeVersion maximum;
    std::vector<std::wstring> preferredVersions;
    /// "JRE Path" as written in the settings: not expanded, without an added backslash.
    std::wstring jrePath;
};

/// Returns the type that a "JVM Type" text names (case-sensitive); `Default` for any other text.
JvmType JvmTypeOf(std::wstring_view text);

/// Sets the source flags from a "JVM Source" text (case-sensitive). An unknown word excludes all
/// registry roots.
void ApplyJvmSource(std::wstring_view text, RuntimeSearchPolicy& policy);

/// Sets the provider flags from a "VM Provider" text (not case-sensitive). An empty text or an
/// unknown word leaves them unchanged.
void ApplyVmProvider(std::wstring_view text, RuntimeSearchPolicy& policy);

/// Whether the policy allows or favours IBM runtimes, whose JVM a thread that has called the
/// application must not leave.
inline bool IbmInPolicy(const RuntimeSearchPolicy& policy) {
    return policy.ibmAllowed || policy.ibmFavored;
}

}  // namespace tarn
