#include "jvm/native_paths.h"

#include "base/ansi_text.h"
#include "base/environment.h"
#include "base/paths.h"
#include "base/windows.h"
#include "runtime/jvm_library.h"

namespace tarn {

std::string PrepareNativePaths(const Settings& settings, const std::wstring& jvmLibraryPath) {
    PublishJvmLocation(jvmLibraryPath);
    std::string ansiOption;
    if (!settings.libraryPath.empty()) {
        const std::wstring value = LibraryPathValue(
            settings.libraryPath, ModuleFolder().value_or(std::wstring()), jvmLibraryPath);
        ansiOption = ToThreadAnsi(L"-Djava.library.path=" + ExpandEnvironment(value));
    }
    const std::wstring path =
        ExpandEnvironment(ProcessPathValue(settings.systemPath, jvmLibraryPath));
    SetEnvironmentVariableW(L"Path", path.c_str());
    return ansiOption;
}

}  // namespace tarn
