#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tools/check/admitted_versions.h"

namespace tarn::tools {

enum class FlagKind { Switch, Number, Decimal, Text };

/// A "-XX:" option of HotSpot, in the versions of `kMeasuredVersions`.
struct VmFlag {
    std::string_view name;
    FlagKind kind = FlagKind::Switch;
    VersionSet known = 0;         ///< accept it
    VersionSet ignored = 0;       ///< accept it with a warning and ignore it
    VersionSet diagnostic = 0;    ///< require -XX:+UnlockDiagnosticVMOptions before it
    VersionSet experimental = 0;  ///< require -XX:+UnlockExperimentalVMOptions before it
    /// The range of a number that at least one version accepts; an empty bound is not limited.
    std::string_view lowest{};
    std::string_view highest{};
};

/// The flag with exactly that name; null when no version has it.
const VmFlag* FindVmFlag(std::string_view name);

/// The names of all flags.
const std::vector<std::wstring>& VmFlagNames();

/// The replacement for a flag that newer versions lack; empty when there is none.
std::string_view SuccessorOf(std::string_view name);

}  // namespace tarn::tools
