#include "tests/import_hook/failure_results.h"

#include <algorithm>
#include <iterator>

namespace import_hook {

namespace {

constexpr std::string_view kMinusOne[] = {
    "CreateFileW", "DialogBoxParamW", "FindFirstFileW", "GetFileAttributesW",  "GetFileSize",
    "GetMessageW", "SetFilePointer",  "TlsAlloc",       "WaitForSingleObject",
};

// Functions of the registry, and the shell's own error numbers up to 32.
constexpr std::string_view kError[] = {
    "RegCloseKey", "RegEnumKeyExW", "RegOpenKeyExW", "RegQueryValueExW", "ShellExecuteW",
};

constexpr std::string_view kResultCode[] = {"CoInitializeEx", "OleInitialize"};

template <std::size_t size>
bool Has(const std::string_view (&names)[size], std::string_view name) {
    return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

}  // namespace

std::uint64_t FailureResult(std::string_view name, std::uint32_t error) {
    if (Has(kMinusOne, name)) return ~std::uint64_t{0};
    if (Has(kError, name)) return error;
    // HRESULT_FROM_WIN32, a negative number.
    if (Has(kResultCode, name)) return 0xFFFFFFFF80070000U | (error & 0xFFFFU);
    // GDI+ has statuses of its own: 3 is "out of memory".
    if (name.substr(0, 3) == "Gdi" && (name.substr(0, 4) == "Gdip" || name == "GdiplusStartup")) {
        return 3;
    }
    return 0;
}

}  // namespace import_hook
