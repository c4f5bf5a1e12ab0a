#include "runtime/pe_header.h"

#include <cstddef>
#include <cstdint>
#include <span>

#include "base/dynamic_library.h"
#include "base/handles.h"

namespace tarn {

namespace {

using ImageNtHeaderFunction = IMAGE_NT_HEADERS*(WINAPI*)(void*);

/// Returns the machine field of a mapped file that `HasPeHeaders`.
WORD MachineOf(void* image) {
    const UniqueLibrary dbghelp(LoadSystemLibrary(L"dbghelp.dll"));
    const auto imageNtHeader = FindFunction<ImageNtHeaderFunction>(dbghelp.get(), "ImageNtHeader");
    if (imageNtHeader == nullptr) return IMAGE_FILE_MACHINE_UNKNOWN;
    const IMAGE_NT_HEADERS* const headers = imageNtHeader(image);
    // Only the machine is known to be inside the file. 32-bit and 64-bit headers have it at the
    // same offset.
    return headers != nullptr ? headers->FileHeader.Machine : WORD{IMAGE_FILE_MACHINE_UNKNOWN};
}

}  // namespace

std::uint16_t MachineOfFile(const std::wstring& jvmLibraryPath) {
    const UniqueFile file(CreateFileW(jvmLibraryPath.c_str(), GENERIC_READ, FILE_SHARE_READ,
                                      nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) return IMAGE_FILE_MACHINE_UNKNOWN;
    LARGE_INTEGER size{};
    if (GetFileSizeEx(file.get(), &size) == FALSE) return IMAGE_FILE_MACHINE_UNKNOWN;
    // Fails for an empty file.
    const UniqueHandle mapping(
        CreateFileMappingW(file.get(), nullptr, PAGE_READONLY, 0, 0, nullptr));
    if (!mapping) return IMAGE_FILE_MACHINE_UNKNOWN;
    const UniqueFileView view(MapViewOfFile(mapping.get(), FILE_MAP_READ, 0, 0, 0));
    if (!view) return IMAGE_FILE_MACHINE_UNKNOWN;
    const std::span<const std::byte> bytes(static_cast<const std::byte*>(view.get()),
                                           static_cast<std::size_t>(size.QuadPart));
    // `ImageNtHeader` does not know the size of the file.
    if (!HasPeHeaders(bytes)) return IMAGE_FILE_MACHINE_UNKNOWN;
    return MachineOf(view.get());
}

bool NeedsPairedLauncher(const std::wstring& jvmLibraryPath, const std::wstring& pairProduct) {
    return !pairProduct.empty() && MachineOfFile(jvmLibraryPath) == IMAGE_FILE_MACHINE_I386;
}

}  // namespace tarn
