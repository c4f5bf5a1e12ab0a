#include "jvm/output_redirection.h"

#include "base/text.h"

namespace tarn {
namespace {

constexpr auto npos = std::wstring_view::npos;
constexpr std::wstring_view kSeparators = L"\\/";

// Start of the component after the one that begins at `start`; the name's length when there is
// none.
std::size_t NextComponent(std::wstring_view name, std::size_t start) {
    const std::size_t end = name.find_first_of(kSeparators, start);
    if (end == npos) return name.size();
    const std::size_t next = name.find_first_not_of(kSeparators, end);
    return next == npos ? name.size() : next;
}

// Length of the part in front of the first folder that can be created.
std::size_t RootLength(std::wstring_view name) {
    if (name.size() >= 2 && name[1] == L':') return 2;
    std::size_t start = 2;       // the two backslashes
    std::size_t components = 2;  // server and share
    const std::wstring_view prefix = name.substr(0, 4);
    if (prefix == L"\\\\?\\" || prefix == L"\\\\.\\") {
        start = 4;
        const bool share = EqualsIgnoringCase(name.substr(4, 4), L"UNC\\");
        components = share ? 3 : 1;  // "UNC", server and share; a drive or a volume
    }
    for (; components > 0; --components) start = NextComponent(name, start);
    return start;
}

}  // namespace

std::size_t NextFolderLevel(std::wstring_view absoluteName, std::size_t previous) {
    const std::size_t end = previous == 0 ? RootLength(absoluteName) : previous;
    const std::size_t start = absoluteName.find_first_not_of(kSeparators, end);
    return start == npos ? npos : absoluteName.find_first_of(kSeparators, start);
}

}  // namespace tarn
