#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "runtime/search_policy.h"

namespace tarn {

enum class RuntimeKind { Jdk, Jre };

enum class RuntimeProvider { Sun, Jrockit, Ibm };

/// A registry key under which installers register runtimes, one subkey a version.
struct RegistryRoot {
    /// Below `HKEY_LOCAL_MACHINE`.
    const wchar_t* key;
    RuntimeKind kind;
    RuntimeProvider provider;
    /// Where the runtime stands inside the registered folder; empty, or ends in a backslash.
    std::wstring_view belowHome;
    /// A favoured server JVM is not looked for first here, so that such a runtime counts as one
    /// with a server JVM only when that is the one it offers anyway.
    bool ignoresFavorServer;
};

/// The roots in the order in which they are searched.
std::span<const RegistryRoot> RegistryRoots();

/// Whether runtimes of the root's kind are searched: wanted, or the other kind is only favoured.
bool IsKindSearched(const RegistryRoot& root, const RuntimeSearchPolicy& policy);

/// Whether runtimes of the root's provider are searched.
bool IsProviderSearched(const RegistryRoot& root, const RuntimeSearchPolicy& policy);

/// Whether the root's runtimes are of the favoured kind and of the favoured provider.
bool IsFavored(const RegistryRoot& root, const RuntimeSearchPolicy& policy);

/// The JVM type to look for in the root's runtimes.
JvmType JvmTypeIn(const RegistryRoot& root, JvmType wanted);

/// The runtime's home for a "JavaHome" value of the root; always ends in a backslash.
std::wstring HomeOf(const RegistryRoot& root, std::wstring_view javaHome);

/// The text that the data of a registry value holds, whatever its type says: UTF-16 up to the first
/// zero or the end. Half a character at the end is dropped.
std::wstring TextOfValue(std::span<const std::byte> data);

}  // namespace tarn
