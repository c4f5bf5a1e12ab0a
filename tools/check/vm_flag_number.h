#pragma once

#include <optional>
#include <string_view>

#include "tools/check/vm_flags.h"

namespace tarn::tools {

/// The value of a numeric "-XX:" option.
struct VmFlagNumber {
    double value = 0;
    /// Written in a form of decimals that Java 11 and 17 refuse: ".5", "50.", "5e1".
    bool isNewForm = false;
};

/// Reads a value as HotSpot does: whole numbers, also hexadecimal and with one of the units k, m, g
/// and t (powers of 1024); for `FlagKind::Decimal` also with a fraction and an exponent. Nothing
/// for any other text and for 2^64 or more.
std::optional<VmFlagNumber> ParseVmFlagNumber(FlagKind kind, std::string_view text);

/// Whether at least one version accepts the value. Bounds beyond 2^53 are compared approximately,
/// in favour of the value.
bool IsInRange(const VmFlag& flag, double value);

}  // namespace tarn::tools
