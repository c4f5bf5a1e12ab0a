#pragma once

#include <string>

namespace tarn {

/// Replaces every `%NAME%` of an existing environment variable by its value
/// (`ExpandEnvironmentStringsW`); the result may have any length. Returns the text unchanged when
/// it cannot be expanded.
std::wstring ExpandEnvironment(const std::wstring& text);

}  // namespace tarn
