#include "base/text.h"
#include "jvm/class_path.h"
#include "tools/check/class_path_on_disk.h"
#include "tools/check/jvm_options.h"

namespace tarn::tools {

bool IsResolvableHere(const std::wstring& entry) {
    return !HasVariable(entry);
}

std::vector<std::filesystem::path> FindEntry(const CheckedSettings& settings,
                                             const std::wstring& entry) {
    std::error_code error;
    const std::wstring folder =
        std::filesystem::absolute(settings.folder(), error).make_preferred().wstring();
    std::vector<std::filesystem::path> found;
    for (const std::wstring& piece :
         Split(ExpandClassPath(entry, EnsureTrailing(folder, L'\\')), L';')) {
        const std::filesystem::path path(piece);
        const std::wstring name = path.filename().wstring();
        if (!piece.empty() && name != L"." && name != L".." &&
            std::filesystem::exists(path, error)) {
            found.push_back(path);
        }
    }
    return found;
}

}  // namespace tarn::tools
