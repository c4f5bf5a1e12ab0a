#pragma once

#include <string>

namespace tarn {

/// The text with every `%NAME%` of a known environment variable replaced by its value
/// (`ExpandEnvironmentStringsW`, of any length). A text that cannot be expanded stays as it is.
std::wstring ExpandEnvironment(const std::wstring& text);

}  // namespace tarn
