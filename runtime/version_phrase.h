#pragma once

#include <string>

#include "runtime/runtime_version.h"

namespace tarn {

/// The phrase that tells the user which versions will do, from the string table ("minimum version
/// 1.8", "latest version" when neither bound says anything).
std::wstring DescribeVersionBounds(const RuntimeVersion& minimum, const RuntimeVersion& maximum);

}  // namespace tarn
