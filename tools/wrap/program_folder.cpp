#include "tools/wrap/program_folder.h"

#ifdef _WIN32
#include "base/paths.h"
#endif

namespace tarn::tools {

std::filesystem::path ProgramFolder() {
#ifdef _WIN32
    return std::filesystem::path(ModuleFolder().value_or(std::wstring()));
#else
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
#endif
}

}  // namespace tarn::tools
