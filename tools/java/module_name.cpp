#include "tools/java/module_name.h"

#include "tools/common/ascii.h"

namespace tarn::tools {
namespace {

bool IsDigit(char letter) {
    return letter >= '0' && letter <= '9';
}

bool IsLetterOrDigit(char letter) {
    return IsDigit(letter) || (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z');
}

// Where the version begins: at "-", digits, and then "." or the end.
std::size_t VersionOf(std::string_view stem) {
    for (std::size_t at = stem.find('-'); at != std::string_view::npos;
         at = stem.find('-', at + 1)) {
        std::size_t end = at + 1;
        while (end < stem.size() && IsDigit(stem[end])) ++end;
        if (end > at + 1 && (end == stem.size() || stem[end] == '.')) return at;
    }
    return stem.size();
}

}  // namespace

std::string AutomaticModuleName(std::string_view fileName) {
    constexpr std::string_view kExtension = ".jar";
    if (ToLowerAscii(fileName).ends_with(kExtension)) fileName.remove_suffix(kExtension.size());
    std::string name;
    for (const char letter : fileName.substr(0, VersionOf(fileName))) {
        if (IsLetterOrDigit(letter)) {
            name += letter;
        } else if (!name.empty() && name.back() != '.') {
            name += '.';
        }
    }
    if (name.ends_with('.')) name.pop_back();
    return name;
}

}  // namespace tarn::tools
