#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tools/check/admitted_versions.h"

namespace tarn::tools {

enum class FlagKind { Switch, Number, Decimal, Text };

/// An option "-XX:" of the usual JVM, in the versions of `kMeasuredVersions`.
struct VmFlag {
    std::string_view name;
    FlagKind kind = FlagKind::Switch;
    VersionSet known = 0;         ///< take it
    VersionSet ignored = 0;       ///< start with it, say that it is gone, and do without
    VersionSet diagnostic = 0;    ///< want -XX:+UnlockDiagnosticVMOptions before it
    VersionSet experimental = 0;  ///< want -XX:+UnlockExperimentalVMOptions before it
};

/// The flag of exactly that name; null when no version has it.
const VmFlag* FindVmFlag(std::string_view name);

/// All names.
std::vector<std::wstring> VmFlagNames();

/// What to write instead of a flag that newer versions lack; empty when nothing is to be said.
std::string_view SuccessorOf(std::string_view name);

}  // namespace tarn::tools
