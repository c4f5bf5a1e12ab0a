#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "runtime/search_policy.h"

namespace tarn {

/// What "JVM Source" distinguishes.
enum class RuntimeKind { Jdk, Jre };

/// What "VM Provider" distinguishes.
enum class RuntimeProvider { Sun, Jrockit, Ibm };

/// A registry key below which installers register runtimes, with one subkey for each version.
struct RegistryRoot {
    /// Path below `HKEY_LOCAL_MACHINE`, without a trailing backslash.
    const wchar_t* key;
    RuntimeKind kind;
    RuntimeProvider provider;
    /// Path of the runtime in the registered folder; empty, or ends in a backslash.
    std::wstring_view belowHome;
    /// `FavorServer` is treated as `Default`: docs/developer/compatibility.md.
    bool ignoresFavorServer;
};

/// Returns the roots in the order of the search.
std::span<const RegistryRoot> RegistryRoots();

/// Whether "JVM Source" admits the root: its kind is wanted, or the other kind is only favoured.
bool IsKindSearched(const RegistryRoot& root, const RuntimeSearchPolicy& policy);

/// Whether "VM Provider" admits the root.
bool IsProviderSearched(const RegistryRoot& root, const RuntimeSearchPolicy& policy);

/// Whether the root's runtimes are of the favoured kind and of the favoured provider.
bool IsFavored(const RegistryRoot& root, const RuntimeSearchPolicy& policy);

/// Returns the JVM type to select in the root's runtimes.
JvmType JvmTypeIn(const RegistryRoot& root, JvmType wanted);

/// Returns the runtime's home for a "JavaHome" value of the root; it ends in a backslash.
std::wstring HomeOf(const RegistryRoot& root, std::wstring_view javaHome);

/// Returns the data of a registry value of any type as text: UTF-16 up to the first zero or the
/// end. An odd byte at the end is ignored.
std::wstring TextOfValue(std::span<const std::byte> data);

}  // namespace tarn
