// The options that HotSpot accepts and refuses through its invocation interface, except "-XX:"
// options, and the options that the settings contain.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tools/check/checked_settings.h"

namespace tarn::tools {

/// An option that only the program java accepts, or that has been removed.
struct RefusedOption {
    /// The option; a prefix when it ends with "=" or ":".
    std::wstring_view option;
    std::string_view advice;
};

/// An option that the JVM accepts.
struct AcceptedOption {
    std::wstring_view option;
    /// Whether the option is a prefix, as in "-Xlog:gc".
    bool isPrefix;
    /// The oldest version that accepts it; 0 for all.
    int since;
};

/// The entry for a refused option; null when it is not in the list.
const RefusedOption* FindRefused(std::wstring_view option);

/// The entry that `option` matches; null when there is none.
const AcceptedOption* FindAccepted(std::wstring_view option);

std::span<const AcceptedOption> AcceptedOptions();

/// Whether java, unlike the JVM, also accepts the option's value as the next argument: "--add-opens
/// a/b=c".
bool RequiresEqualsSign(std::wstring_view option);

/// The tokens of "Virtual Machine Parameters" as the launcher splits them, without quotes.
/// Environment variables are not expanded: their values are unknown here.
struct WrittenOptions {
    std::size_t line = 0;
    std::vector<std::wstring> options;
};

WrittenOptions JvmOptionsOf(const CheckedSettings& settings);

/// Whether the text contains an environment variable between percent signs.
bool HasVariable(std::wstring_view text);

/// Whether the settings admit runtimes with HotSpot, whose options are known.
bool AdmitsHotSpot(const CheckedSettings& settings);

}  // namespace tarn::tools
