#include "jvm/create_jvm.h"

#include "jvm/exit_hooks.h"
#include "jvm/redirection.h"
#include "resources/ids.h"
#include "ui/messages/error_reporter.h"

namespace tarn {
namespace {

// The interface wants text it could write to; no JVM does.
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

// 0 for a result that the interface does not name: it has no reason either.
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

bool CreateJvm(const ErrorReporter& errors, const std::vector<std::string>& ansiOptions,
               const OutputFiles& outputFiles, JvmInstance& machine, JNIEnv*& env) {
    std::vector<JavaVMOption> options = OptionArray(ansiOptions);
    JavaVMInitArgs args{};
    args.version = JNI_VERSION_1_2;
    args.nOptions = static_cast<jint>(options.size());
    args.options = options.data();
    args.ignoreUnrecognized = JNI_FALSE;
    void* created = nullptr;
    const jint result = machine.entryPoints.createJavaVm(&machine.vm, &created, &args);
    if (result != JNI_OK) {
        machine.vm = nullptr;
        errors.ShowJniFailure(IDS_JAVA_VM_NOT_CREATED, ReasonId(result));
        return false;
    }
    env = static_cast<JNIEnv*>(created);
    SetUpRedirection(env, outputFiles);
    return true;
}

}  // namespace tarn
