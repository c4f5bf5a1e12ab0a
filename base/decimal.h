#pragma once

#include <cstdint>
#include <string>

namespace tarn {

/// The number as signed decimal digits. The standard library's way brings all of printf, floating
/// point included, into the launcher: 43 KB.
std::wstring DecimalText(std::int32_t number);

}  // namespace tarn
