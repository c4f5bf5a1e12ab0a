#include "instance/shared_block.h"

#include <algorithm>

#include "base/text.h"

namespace tarn {

std::wstring InstanceName(std::wstring_view executablePath) {
    return ReplaceAll(executablePath, L'\\', L'_');
}

std::wstring ReadyEventName(std::wstring_view instanceName) {
    std::wstring name(instanceName);
    name += L"_upr_evt";
    return name;
}

std::size_t ArgumentUnits(const std::vector<std::wstring>& arguments) {
    std::size_t needed = 1;  // the list's zero
    for (const std::wstring& argument : arguments) needed += argument.size() + 1;
    return needed;
}

bool EncodeArguments(const std::vector<std::wstring>& arguments, ArgumentArea area) {
    if (ArgumentUnits(arguments) > area.size()) return false;

    std::fill(area.begin(), area.end(), u'\0');
    auto out = area.begin();
    for (const std::wstring& argument : arguments) {
        out = std::transform(argument.begin(), argument.end(), out,
                             [](wchar_t unit) { return static_cast<char16_t>(unit); });
        ++out;
    }
    return true;
}

std::vector<std::wstring> DecodeArguments(ConstArgumentArea area) {
    std::vector<std::wstring> arguments;
    for (auto from = area.begin(); from != area.end();) {
        const auto to = std::find(from, area.end(), u'\0');
        // A second zero in a row ends the list (docs/developer/compatibility.md). The zero at the
        // start follows none, so it is an empty argument unless a second zero follows.
        if (from == to && (from != area.begin() || area[1] == u'\0')) break;
        arguments.emplace_back(from, to);
        from = to == area.end() ? to : to + 1;
    }
    return arguments;
}

}  // namespace tarn
