#include "base/arguments.h"

#include <algorithm>

#include "base/text.h"

namespace tarn {

std::vector<std::wstring> SplitArguments(std::wstring_view text) {
    constexpr auto npos = std::wstring_view::npos;
    std::vector<std::wstring> arguments;
    std::size_t at = 0;
    while ((at = text.find_first_not_of(L' ', at)) != npos) {
        const bool quoted = text[at] == L'"';
        if (quoted) ++at;
        const std::size_t end = text.find(quoted ? L'"' : L' ', at);
        arguments.emplace_back(text.substr(at, end == npos ? npos : end - at));
        if (end == npos) break;
        at = end + 1;
    }
    return arguments;
}

std::vector<std::wstring> ArgumentsOf(std::wstring_view commandLine) {
    std::vector<std::wstring> arguments = SplitArguments(TrimWhiteSpace(commandLine));
    if (!arguments.empty()) arguments.erase(arguments.begin());
    return arguments;
}

bool SuppressesSplash(const std::vector<std::wstring>& arguments) {
    return std::any_of(arguments.begin(), arguments.end(), [](const std::wstring& argument) {
        return argument == L"-nosplash" || argument == L"/nosplash";
    });
}

}  // namespace tarn
