#pragma once

#include <string>
#include <vector>

#include "tools/check/checked_settings.h"

namespace tarn::tools {

/// The tokens of "Virtual Machine Parameters" as the launcher splits them, quotes removed. What
/// environment variables stand for is not known here: they are left as they are.
struct WrittenOptions {
    std::size_t line = 0;
    std::vector<std::wstring> options;
};

WrittenOptions JvmOptionsOf(const CheckedSettings& settings);

/// Whether the text holds the name of an environment variable between percent signs.
bool HasVariable(std::wstring_view text);

/// Whether the settings lead to runtimes of the usual JVM, whose options are known.
bool HasUsualJvm(const CheckedSettings& settings);

}  // namespace tarn::tools
