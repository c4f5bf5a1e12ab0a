#include "core/command_line.h"

#include <algorithm>

#include "base/arguments.h"
#include "base/text.h"

namespace tarn {

std::vector<std::wstring> ArgumentsOf(std::wstring_view commandLine) {
    std::vector<std::wstring> arguments = SplitArguments(TrimWhiteSpace(commandLine));
    if (!arguments.empty()) arguments.erase(arguments.begin());
    return arguments;
}

// The switches stay in the argument list (docs/developer/compatibility.md).
bool SuppressesSplash(const std::vector<std::wstring>& arguments) {
    return std::any_of(arguments.begin(), arguments.end(), [](const std::wstring& argument) {
        return argument == L"-nosplash" || argument == L"/nosplash";
    });
}

}  // namespace tarn
