// Causes a failure that ends the launcher; the first letter of the argument selects it.

#include <memory>
#include <string>
#include <vector>

#include "base/windows.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR argument, int) {
    // More than any address space, and not known to the compiler.
    const volatile std::size_t huge = static_cast<std::size_t>(1) << 48U;
    std::wstring text = L"text";
    std::vector<wchar_t> units(4);
    switch (argument[0]) {
        case L'a':
            text.resize(huge);
            break;  // an allocation that fails
        case L'l':
            text.resize(static_cast<std::size_t>(-8));
            break;  // an impossible length
        case L'n':
            return *std::make_unique<char[]>(huge).get();
        case L'i':
            return text.at(huge);
        case L's':
            return static_cast<int>(text.substr(huge).size());
        case L'v':
            return units.at(huge);
        default:
            break;
    }
    return static_cast<int>(text.size());
}
