#pragma once

#include <cstdint>
#include <string>
#include <utility>

namespace tarn::tools {

/// Parses a value of --set-string: "ID=TEXT" in UTF-8, with the escapes "\n", "\t" and "\\" in
/// the text. Throws Failure unless the id is a number from 0 to 65535.
std::pair<std::uint16_t, std::string> ParseStringOption(const std::string& option);

}  // namespace tarn::tools
