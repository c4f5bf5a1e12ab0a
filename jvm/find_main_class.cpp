#include "jvm/find_main_class.h"

#include "base/text.h"
#include "jvm/java_text.h"
#include "resources/ids.h"
#include "ui/messages/error_reporter.h"

namespace tarn {
namespace {

constexpr jint kLoadByClassName = 1;

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

}  // namespace

jclass FindMainClass(JNIEnv* env, const JvmEntryPoints& entryPoints, const std::wstring& mainClass,
                     const ErrorReporter& errors) {
    const jclass loaded = LoadThroughHelper(env, entryPoints, mainClass);
    // JNI allows nearly no call while an exception is pending, and the other way starts afresh.
    if (env->ExceptionCheck()) {
        env->ExceptionClear();
    } else if (loaded != nullptr) {
        return loaded;
    }
    return LoadDirectly(env, mainClass, errors);
}

}  // namespace tarn
