// What the usual JVM takes and refuses through its native interface, apart from "-XX:" options.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tools/check/checked_settings.h"

namespace tarn::tools {

/// An option that only the command-line program java knows, or that none knows any more.
struct RefusedOption {
    /// The whole option; or, when it ends in "=", ":" or "/p", how it begins.
    std::wstring_view option;
    std::string_view advice;
};

/// An option that the JVM takes.
struct TakenOption {
    std::wstring_view option;
    /// Whether something may follow, as in "-Xlog:gc".
    bool mayGoOn;
    /// The oldest version that takes it; 0 when all do.
    int since;
};

/// The entry that tells why `option` is refused; null when it is not in the list.
const RefusedOption* FindRefused(std::wstring_view option);

/// The entry that `option` is an instance of; null when there is none.
const TakenOption* FindTaken(std::wstring_view option);

std::span<const TakenOption> TakenOptions();

/// Whether java takes the option's value as a word of its own, which the JVM does not:
/// "--add-opens a/b=c".
bool WantsEqualsSign(std::wstring_view option);

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
