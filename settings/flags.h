#pragma once

#include <string_view>

namespace tarn {

// A flag key has one of two forms, which differ on purpose: docs/developer/compatibility.md.

/// Returns whether a flag of the "Yes" form is on: the value is "Yes" in any case.
bool IsYes(std::wstring_view value);

/// Returns whether a flag of the "yes" form is on: the value is exactly "yes".
bool IsExactlyYes(std::wstring_view value);

}  // namespace tarn
