#include "jvm/main_class.h"

#include "base/text.h"
#include "jvm/jni_util.h"
#include "jvm/uncaught_exception.h"
#include "resources/ids.h"

namespace tarn {
namespace {

constexpr jint kLoadByClassName = 1;  // LM_CLASS of sun.launcher.LauncherHelper

jclass LoadThroughHelper(JNIEnv* env, const JvmEntryPoints& entryPoints,
                         const std::wstring& mainClass) {
    if (entryPoints.findClassFromBootLoader == nullptr) return nullptr;
    const jclass helper = entryPoints.findClassFromBootLoader(env, "sun/launcher/LauncherHelper");
    if (helper == nullptr) return nullptr;
    const jmethodID load = env->GetStaticMethodID(helper, "checkAndLoadMain",
                                                  "(ZILjava/lang/String;)Ljava/lang/Class;");
    if (load == nullptr) return nullptr;
    const jstring name = MakeJavaString(env, ReplaceAll(mainClass, L'/', L'.'));
    if (name == nullptr) return nullptr;
    return static_cast<jclass>(
        env->CallStaticObjectMethod(helper, load, JNI_TRUE, kLoadByClassName, name));
}

jclass LoadDirectly(JNIEnv* env, const std::wstring& mainClass, const ErrorReporter& errors) {
    const jstring name = MakeJavaString(env, mainClass);
    if (name == nullptr) {
        errors.ShowFormattedError(IDS_MAIN_CLASS_NOT_LOADED, mainClass);
        return nullptr;
    }
    const char* const characters = env->GetStringUTFChars(name, nullptr);
    if (characters == nullptr) {
        env->ExceptionDescribe();
        return nullptr;
    }
    const jclass found = env->FindClass(characters);
    if (found == nullptr) {
        env->ExceptionDescribe();
        errors.ShowFormattedError(IDS_MAIN_CLASS_NOT_FOUND, mainClass);
        return nullptr;
    }
    env->ReleaseStringUTFChars(name, characters);
    return found;
}

jclass FindMainClass(JNIEnv* env, const JavaLaunch& launch) {
    const std::wstring& mainClass = launch.settings.mainClass;
    const jclass loaded = LoadThroughHelper(env, launch.jvm.entryPoints, mainClass);
    // JNI allows hardly any call while an exception is pending, and FindClass tries afresh.
    if (env->ExceptionCheck()) {
        env->ExceptionClear();
    } else if (loaded != nullptr) {
        return loaded;
    }
    return LoadDirectly(env, mainClass, launch.errors);
}

jmethodID FindMainMethod(JNIEnv* env, jclass mainClass, const ErrorReporter& errors) {
    const jmethodID method = env->GetStaticMethodID(mainClass, "main", "([Ljava/lang/String;)V");
    if (method == nullptr && !DescribePending(env)) errors.ShowErrorMessage(IDS_NO_MAIN_METHOD);
    return method;
}

}  // namespace

bool RunMainClass(JNIEnv* env, const JavaLaunch& launch) {
    const jclass mainClass = FindMainClass(env, launch);
    if (mainClass == nullptr) return false;
    const jmethodID mainMethod = FindMainMethod(env, mainClass, launch.errors);
    if (mainMethod == nullptr) return false;
    const jobjectArray arguments = MakeStringArray(env, launch.options.arguments);
    if (arguments == nullptr) {
        env->ExceptionDescribe();
        return false;
    }
    if (launch.readyEvent != nullptr) SetEvent(launch.readyEvent);
    env->CallStaticVoidMethod(mainClass, mainMethod, arguments);
    if (env->ExceptionCheck()) {
        launch.splash.CloseSplash();
        HandleUncaughtException(env, launch.settings.failureCheck);
    }
    // For every runtime under such a policy: docs/developer/compatibility.md.
    if (IbmInPolicy(launch.settings.policy)) Sleep(INFINITE);
    return launch.jvm.javaVm->DetachCurrentThread() == JNI_OK;
}

}  // namespace tarn
