#include "jvm/vm_parameters.h"

#include "base/windows.h"

namespace tarn {

MemorySizes ReadMemorySizes() {
    // Not GlobalMemoryStatusEx: docs/developer/compatibility.md.
    MEMORYSTATUS status;
    GlobalMemoryStatus(&status);
    return {status.dwTotalPhys, status.dwAvailVirtual};
}

std::wstring TransformVmParameter(std::wstring_view token, std::uint64_t& javaThreadStackSize) {
    std::wstring option = RemoveQuotes(std::wstring(token));
    if (HasPercentageForm(option)) option = ResolvePercentage(option, ReadMemorySizes());
    if (option.starts_with(L"-Xss")) javaThreadStackSize = StackSizeOf(option);
    return option;
}

}  // namespace tarn
