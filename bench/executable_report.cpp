#include "bench/executable_report.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include "base/windows.h"

namespace tarn::bench {

namespace {

constexpr std::uintmax_t kKiB = 1024;
constexpr std::uintmax_t kSizeLimit = 84 * kKiB;
constexpr std::uintmax_t kSizeWanted = 64 * kKiB;
// Loaded when they are needed, or not at all.
constexpr const char* kNeverImported[] = {"gdiplus.dll", "dbghelp.dll", "version.dll", "winmm.dll"};

BOOL CALLBACK AddSize(HMODULE module, const wchar_t* type, wchar_t* name, LONG_PTR total) noexcept {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): what a callback of Windows gets.
    *reinterpret_cast<std::uintmax_t*>(total) +=
        SizeofResource(module, FindResourceW(module, name, type));
    return TRUE;
}

std::uintmax_t IconBytes(const std::filesystem::path& executable) {
    std::uintmax_t total = 0;
    HMODULE module = LoadLibraryExW(executable.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    if (module == nullptr) throw std::runtime_error("cannot map " + executable.string());
    // MAKEINTRESOURCEW(3) and (14): the pictures and the group that lists them.
    EnumResourceNamesW(module, reinterpret_cast<const wchar_t*>(3), AddSize,
                       reinterpret_cast<LONG_PTR>(&total));
    EnumResourceNamesW(module, reinterpret_cast<const wchar_t*>(14), AddSize,
                       reinterpret_cast<LONG_PTR>(&total));
    FreeLibrary(module);
    return total;
}

template <typename Record>
Record At(const std::string& bytes, std::size_t offset) {
    Record record{};
    if (offset + sizeof(record) > bytes.size())
        throw std::runtime_error("the executable ends in its headers");
    std::memcpy(&record, bytes.data() + offset, sizeof(record));
    return record;
}

std::vector<std::string> StaticImports(const std::filesystem::path& executable) {
    std::ifstream file(executable, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    const auto headers = static_cast<std::size_t>(At<IMAGE_DOS_HEADER>(bytes, 0).e_lfanew);
    const auto nt = At<IMAGE_NT_HEADERS64>(bytes, headers);
    const std::size_t sections =
        headers + offsetof(IMAGE_NT_HEADERS64, OptionalHeader) + nt.FileHeader.SizeOfOptionalHeader;
    const auto fileOffset = [&](DWORD address) -> std::size_t {
        for (std::size_t i = 0; i < nt.FileHeader.NumberOfSections; ++i) {
            const auto section =
                At<IMAGE_SECTION_HEADER>(bytes, sections + i * sizeof(IMAGE_SECTION_HEADER));
            if (address >= section.VirtualAddress &&
                address < section.VirtualAddress + section.SizeOfRawData)
                return address - section.VirtualAddress + section.PointerToRawData;
        }
        throw std::runtime_error("an address outside every section");
    };
    std::vector<std::string> names;
    std::size_t place =
        fileOffset(nt.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress);
    for (auto import = At<IMAGE_IMPORT_DESCRIPTOR>(bytes, place); import.Name != 0;
         import = At<IMAGE_IMPORT_DESCRIPTOR>(bytes, place)) {
        names.emplace_back(bytes.c_str() + fileOffset(import.Name));
        place += sizeof(import);
    }
    return names;
}

bool IsForbidden(const std::string& name) {
    return std::any_of(
        std::begin(kNeverImported), std::end(kNeverImported),
        [&](const char* forbidden) { return _stricmp(forbidden, name.c_str()) == 0; });
}

}  // namespace

void PrintExecutableReport(const std::filesystem::path& executable) {
    const std::uintmax_t size = std::filesystem::file_size(executable);
    const std::uintmax_t withoutIcon = size - IconBytes(executable);
    std::printf("### Size and imports\n\n");
    std::printf("- %.1f KiB, without the icon %.1f KiB (at most %ju KiB, %ju KiB wanted) %s\n",
                static_cast<double>(size) / 1024, static_cast<double>(withoutIcon) / 1024,
                kSizeLimit / kKiB, kSizeWanted / kKiB,
                withoutIcon <= kSizeWanted  ? "met"
                : withoutIcon <= kSizeLimit ? "within the limit"
                                            : "MISSED");
    std::printf("- static imports:");
    bool forbidden = false;
    for (const std::string& name : StaticImports(executable)) {
        std::printf(" %s", name.c_str());
        forbidden = forbidden || IsForbidden(name);
    }
    std::printf(" %s\n", forbidden ? "MISSED" : "met");
    std::fflush(stdout);
}

}  // namespace tarn::bench
