#include "jvm/java_thread.h"

#include "base/handles.h"
#include "base/text.h"
#include "base/thread.h"
#include "jvm/java_exception.h"
#include "jvm/jni_util.h"
#include "resources/ids.h"

namespace tarn {
namespace {

constexpr DWORD kWaitRetryMs = 100;
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

// Whether `main` was called and the thread could be detached from the JVM.
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

DWORD RunJava(JavaLaunch& launch) {
    JNIEnv* env = nullptr;
    if (!CreateJvm(launch.errors, launch.options, launch.jvm, env)) return 1;
    if (!RunMainClass(env, launch)) return 1;
    // Only a service waits for the application's other threads.
    if (launch.settings.serviceMode && launch.jvm.javaVm != nullptr) {
        launch.jvm.javaVm->DestroyJavaVM();
        launch.jvm.javaVm = nullptr;
    }
    return 0;
}

DWORD WINAPI JavaThreadProc(void* parameter) noexcept {
    if (parameter == nullptr) return 1;
    return RunJava(*static_cast<JavaLaunch*>(parameter));
}

}  // namespace

DWORD RunJavaThread(JavaLaunch& launch) {
    std::uint64_t stackSize = launch.options.javaThreadStackSize;
    if (stackSize == 0) stackSize = DefaultStackSize(launch.jvm.entryPoints);
    const UniqueHandle thread(
        CreateThread(nullptr, static_cast<SIZE_T>(stackSize), JavaThreadProc, &launch, 0, nullptr));
    if (!thread) return RunJava(launch);
    // The records that the thread uses are destroyed after this.
    while (!HasEnded(thread.get(), INFINITE)) Sleep(kWaitRetryMs);
    DWORD exitCode = 1;
    GetExitCodeThread(thread.get(), &exitCode);
    return exitCode;
}

}  // namespace tarn
