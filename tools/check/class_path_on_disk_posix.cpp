#include "base/paths.h"
#include "jvm/class_path.h"
#include "tools/check/class_path_on_disk.h"
#include "tools/check/jvm_options.h"

namespace tarn::tools {

bool IsResolvableHere(const std::wstring& entry) {
    return !HasVariable(entry) && !IsAbsolutePath(entry);
}

std::vector<std::filesystem::path> FindEntry(const CheckedSettings& settings,
                                             const std::wstring& entry) {
    return FindAsWindows(settings.folder(), ClassPathPattern(entry, L""));
}

}  // namespace tarn::tools
