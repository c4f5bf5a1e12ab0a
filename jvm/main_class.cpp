#include "jvm/main_class.h"

#include "jvm/find_main_class.h"
#include "jvm/java_text.h"
#include "jvm/uncaught_exception.h"
#include "resources/ids.h"
#include "ui/messages/error_reporter.h"

namespace tarn {
namespace {

jmethodID FindMainMethod(JNIEnv* env, jclass mainClass, const ErrorReporter& errors) {
    const jmethodID method = env->GetStaticMethodID(mainClass, "main", "([Ljava/lang/String;)V");
    if (method != nullptr) return method;
    if (env->ExceptionCheck()) {
        env->ExceptionDescribe();
    } else {
        errors.ShowErrorMessage(IDS_NO_MAIN_METHOD);
    }
    return nullptr;
}

}  // namespace

bool RunMainClass(JNIEnv* env, const JvmInstance& machine, const Settings& settings,
                  const std::vector<std::wstring>& arguments, HANDLE readyEvent, Splash& splash,
                  const ErrorReporter& errors) {
    const jclass mainClass = FindMainClass(env, machine.entryPoints, settings.mainClass, errors);
    if (mainClass == nullptr) return false;
    const jmethodID mainMethod = FindMainMethod(env, mainClass, errors);
    if (mainMethod == nullptr) return false;
    const jobjectArray javaArguments = MakeStringArray(env, arguments);
    if (javaArguments == nullptr) {
        env->ExceptionDescribe();
        return false;
    }
    if (readyEvent != nullptr) SetEvent(readyEvent);
    env->CallStaticVoidMethod(mainClass, mainMethod, javaArguments);
    if (env->ExceptionCheck()) {
        splash.Close();
        HandleUncaughtException(env, settings.failureCheck);
    }
    // An IBM runtime does not get over the end of the thread that called `main`. The settings
    // decide, not the runtime that was found, so that an application behaves alike on all.
    if (IbmInPolicy(settings.policy)) Sleep(INFINITE);
    return machine.vm->DetachCurrentThread() == JNI_OK;
}

}  // namespace tarn
