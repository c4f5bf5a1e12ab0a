#include "jvm/jvm_loader.h"

#include "base/dynamic_library.h"
#include "jvm/exit_hooks.h"
#include "jvm/output_redirection.h"
#include "resources/ids.h"

namespace tarn {
namespace {

// A corrupt library is reported by the launcher's own message alone.
HMODULE LoadWithoutHardErrorBox(const std::wstring& path) {
    const HardErrorSuppression suppression;
    return LoadLibraryW(path.c_str());
}

template <typename Function>
bool Resolve(HMODULE library, const char* name, Function& function) {
    function = FindFunction<Function>(library, name);
    return function != nullptr;
}

// JNI declares the text as writable, but no JVM writes to it.
JavaVMOption OptionOf(const char* text, void* extraInfo) {
    return {const_cast<char*>(text), extraInfo};
}

std::vector<JavaVMOption> OptionArray(const std::vector<std::string>& ansiOptions) {
    std::vector<JavaVMOption> options(ansiOptions.size() + 2);
    auto next = options.begin();
    for (const std::string& option : ansiOptions) *next++ = OptionOf(option.c_str(), nullptr);
    *next++ = OptionOf("abort", reinterpret_cast<void*>(&ExitHooks::OnAbort));
    *next = OptionOf("exit", reinterpret_cast<void*>(&ExitHooks::OnExit));
    return options;
}

// 0, an empty reason, for a result that JNI does not define.
unsigned ReasonId(jint result) {
    switch (result) {
        case JNI_ERR:
            return IDS_REASON_UNKNOWN;
        case JNI_EDETACHED:
            return IDS_REASON_DETACHED;
        case JNI_EVERSION:
            return IDS_REASON_VERSION;
        case JNI_ENOMEM:
            return IDS_REASON_NO_MEMORY;
        case JNI_EEXIST:
            return IDS_REASON_EXISTS;
        case JNI_EINVAL:
            return IDS_REASON_INVALID;
        default:
            return 0;
    }
}

}  // namespace

bool LoadJvmLibrary(const ErrorReporter& errors, const std::wstring& jvmLibraryPath,
                    JvmEntryPoints& entryPoints) {
    const HMODULE library = LoadWithoutHardErrorBox(jvmLibraryPath);
    if (library == nullptr) {
        const MessageText format(IDS_JVM_NOT_LOADED);
        const DWORD error = GetLastError();
        errors.ShowErrorMessage(
            MessageText(format, {jvmLibraryPath, static_cast<std::int32_t>(error)}));
        return false;
    }
    if (!Resolve(library, "JNI_CreateJavaVM", entryPoints.createJavaVm) ||
        !Resolve(library, "JNI_GetDefaultJavaVMInitArgs", entryPoints.getDefaultInitArgs)) {
        errors.ShowWindowsFailure(IDS_NO_CREATE_JAVA_VM);
        return false;
    }
    Resolve(library, "JVM_FindClassFromBootLoader", entryPoints.findClassFromBootLoader);
    return true;
}

std::uint64_t DefaultStackSize(const JvmEntryPoints& entryPoints) {
    JDK1_1InitArgs args{};
    args.version = JNI_VERSION_1_1;
    entryPoints.getDefaultInitArgs(&args);
    return args.javaStackSize > 0 ? static_cast<std::uint64_t>(args.javaStackSize) : 0;
}

bool CreateJvm(const ErrorReporter& errors, const JvmOptions& options, JvmInstance& jvm,
               JNIEnv*& env) {
    std::vector<JavaVMOption> optionArray = OptionArray(options.ansiOptions);
    JavaVMInitArgs args{};
    args.version = JNI_VERSION_1_2;
    args.nOptions = static_cast<jint>(optionArray.size());
    args.options = optionArray.data();
    args.ignoreUnrecognized = JNI_FALSE;
    void* created = nullptr;
    const jint result = jvm.entryPoints.createJavaVm(&jvm.javaVm, &created, &args);
    if (result != JNI_OK) {
        jvm.javaVm = nullptr;
        errors.ShowJniFailure(IDS_JAVA_VM_NOT_CREATED, ReasonId(result));
        return false;
    }
    env = static_cast<JNIEnv*>(created);
    SetUpRedirection(env, options.outputFiles);
    return true;
}

}  // namespace tarn
