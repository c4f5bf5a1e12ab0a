#pragma once

#include <string>

namespace tarn {

/// The text of a string-table entry of the executable (`LoadStringW`), of any length. An entry
/// that does not exist gives an empty text.
std::wstring LoadMessageText(unsigned id);

}  // namespace tarn
