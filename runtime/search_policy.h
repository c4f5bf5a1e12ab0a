#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "runtime/runtime_version.h"

namespace tarn {

/// Which of a runtime's JVM libraries is wanted.
enum class JvmType {
    Default,      ///< any, a client JVM before a server JVM
    Server,       ///< the server JVM and no other
    FavorServer,  ///< the server JVM when there is one
};

/// What the application's author says about the runtimes to look for.
struct RuntimeSearchPolicy {
    JvmType jvmType = JvmType::Default;
    /// A runtime of the wanted kind is preferred, but the other kind is searched too.
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
    /// "JRE Path" as it stands in the settings: nothing expanded, no backslash added.
    std::wstring jrePath;
};

/// The JVM type that a "JVM Type" text names; letter case counts.
JvmType JvmTypeOf(std::wstring_view text);

/// Sets the source flags from a "JVM Source" text; letter case counts. A text that is none of the
/// words switches every registry root off.
void ApplyJvmSource(std::wstring_view text, RuntimeSearchPolicy& policy);

/// Sets the provider flags from a "VM Provider" text; letter case does not count. An empty text or
/// one that is none of the words leaves them alone.
void ApplyVmProvider(std::wstring_view text, RuntimeSearchPolicy& policy);

/// Whether the policy allows or favours IBM runtimes. Their JVM is not to be left by a thread that
/// has called `main`.
inline bool IbmInPolicy(const RuntimeSearchPolicy& policy) {
    return policy.ibmAllowed || policy.ibmFavored;
}

}  // namespace tarn
