#include "jvm/jvm_library.h"

#include "base/dynamic_library.h"
#include "resources/ids.h"
#include "ui/messages/error_reporter.h"

namespace tarn {
namespace {

template <typename Function>
bool Find(HMODULE library, const char* name, Function& function) {
    function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
    return function != nullptr;
}

/// A corrupt library is reported by the launcher's own message alone.
HMODULE LoadWithoutHardErrorBox(const std::wstring& path) {
    const HardErrorSuppression suppression;
    return LoadLibraryW(path.c_str());
}

}  // namespace

bool LoadJvmLibrary(const ErrorReporter& errors, const std::wstring& jvmLibraryPath,
                    JvmEntryPoints& entryPoints) {
    // Never unloaded: a JVM does not survive its library, and it lives as long as the process.
    const HMODULE library = LoadWithoutHardErrorBox(jvmLibraryPath);
    if (library == nullptr) {
        const MessageText format(IDS_JVM_NOT_LOADED);
        const DWORD error = GetLastError();
        errors.ShowErrorMessage(
            MessageText(format, {jvmLibraryPath, static_cast<std::int32_t>(error)}));
        return false;
    }
    if (!Find(library, "JNI_CreateJavaVM", entryPoints.createJavaVm) ||
        !Find(library, "JNI_GetDefaultJavaVMInitArgs", entryPoints.getDefaultInitArgs)) {
        errors.ShowWindowsFailure(IDS_NO_CREATE_JAVA_VM);
        return false;
    }
    Find(library, "JVM_FindClassFromBootLoader", entryPoints.findClassFromBootLoader);
    return true;
}

}  // namespace tarn
