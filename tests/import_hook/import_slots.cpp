#include "tests/import_hook/import_slots.h"

namespace import_hook {

std::vector<ImportSlot> ImportSlots() {
    std::vector<ImportSlot> slots;
    auto* const image = reinterpret_cast<char*>(GetModuleHandleW(nullptr));
    const auto* const dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(image);
    const auto* const headers = reinterpret_cast<const IMAGE_NT_HEADERS64*>(image + dos->e_lfanew);
    const IMAGE_DATA_DIRECTORY& directory =
        headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    if (directory.VirtualAddress == 0) return slots;
    const auto* each =
        reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(image + directory.VirtualAddress);
    for (; each->Name != 0; ++each) {
        const auto* names =
            reinterpret_cast<const IMAGE_THUNK_DATA64*>(image + each->OriginalFirstThunk);
        auto* places = reinterpret_cast<IMAGE_THUNK_DATA64*>(image + each->FirstThunk);
        for (; names->u1.AddressOfData != 0; ++names, ++places) {
            ImportSlot slot{image + each->Name, nullptr, 0,
                            reinterpret_cast<void**>(&places->u1.Function)};
            if (IMAGE_SNAP_BY_ORDINAL64(names->u1.Ordinal)) {
                slot.number = static_cast<unsigned>(IMAGE_ORDINAL64(names->u1.Ordinal));
            } else {
                slot.name = reinterpret_cast<const char*>(image + names->u1.AddressOfData) +
                            offsetof(IMAGE_IMPORT_BY_NAME, Name);
            }
            slots.push_back(slot);
        }
    }
    return slots;
}

void Redirect(void** place, void* target) {
    DWORD before = 0;
    VirtualProtect(place, sizeof(void*), PAGE_READWRITE, &before);
    *place = target;
    VirtualProtect(place, sizeof(void*), before, &before);
}

bool IsCode(const void* address) {
    MEMORY_BASIC_INFORMATION region;
    constexpr DWORD kExecutable =
        PAGE_EXECUTE | PAGE_EXECUTE_READ | PAGE_EXECUTE_READWRITE | PAGE_EXECUTE_WRITECOPY;
    return VirtualQuery(address, &region, sizeof region) != 0 &&
           (region.Protect & kExecutable) != 0;
}

}  // namespace import_hook
