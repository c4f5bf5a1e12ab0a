#include "jvm/folder_levels.h"

#include "base/text.h"

namespace tarn {
namespace {

constexpr std::wstring_view kSeparators = L"\\/";

/// Where the component after the one at `start` begins; the name's end when there is none.
std::size_t NextComponent(std::wstring_view name, std::size_t start) {
    const std::size_t end = name.find_first_of(kSeparators, start);
    if (end == std::wstring_view::npos) return name.size();
    const std::size_t next = name.find_first_not_of(kSeparators, end);
    return next == std::wstring_view::npos ? name.size() : next;
}

/// Where the first component begins that may be a folder to create.
std::size_t RootLength(std::wstring_view name) {
    if (name.size() >= 2 && name[1] == L':') return 2;
    std::size_t start = 2;   // the two backslashes
    std::size_t inRoot = 2;  // server and share
    const std::wstring_view marks = name.substr(0, 4);
    if (marks == L"\\\\?\\" || marks == L"\\\\.\\") {
        start = 4;
        const bool share = EqualsIgnoringCase(name.substr(4, 4), L"UNC\\");
        inRoot = share ? 3 : 1;  // "UNC", server and share; a drive or a volume
    }
    for (; inRoot > 0; --inRoot) start = NextComponent(name, start);
    return start;
}

}  // namespace

std::size_t NextFolderLevel(std::wstring_view absoluteName, std::size_t previous) {
    const std::size_t after = previous == 0 ? RootLength(absoluteName) : previous;
    const std::size_t start = absoluteName.find_first_not_of(kSeparators, after);
    return start == std::wstring_view::npos ? start
                                            : absoluteName.find_first_of(kSeparators, start);
}

}  // namespace tarn
