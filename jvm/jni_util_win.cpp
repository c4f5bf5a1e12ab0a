#include "jvm/jni_util.h"

#include <cstdarg>

namespace tarn {
namespace {

// A wide character of Windows and a char of Java are the same UTF-16 code unit.
static_assert(sizeof(wchar_t) == sizeof(jchar));

constexpr char kStringClass[] = "java/lang/String";

}  // namespace

jstring MakeJavaString(JNIEnv* env, std::wstring_view text) {
    const jclass stringClass = env->FindClass(kStringClass);
    if (stringClass == nullptr) return nullptr;
    const jmethodID constructor = env->GetMethodID(stringClass, "<init>", "([C)V");
    if (constructor == nullptr) return nullptr;
    const jsize length = static_cast<jsize>(text.size());
    const jcharArray characters = env->NewCharArray(length);
    if (characters == nullptr) return nullptr;
    env->SetCharArrayRegion(characters, 0, length, reinterpret_cast<const jchar*>(text.data()));
    jobject string = nullptr;
    if (!env->ExceptionCheck()) string = env->NewObject(stringClass, constructor, characters);
    env->DeleteLocalRef(characters);
    // Otherwise each of a thousand arguments would keep one until `main` returns.
    env->DeleteLocalRef(stringClass);
    return static_cast<jstring>(string);
}

jobjectArray MakeStringArray(JNIEnv* env, const std::vector<std::wstring>& texts) {
    const jclass stringClass = env->FindClass(kStringClass);
    if (stringClass == nullptr) return nullptr;
    const jobjectArray array =
        env->NewObjectArray(static_cast<jsize>(texts.size()), stringClass, nullptr);
    if (array == nullptr) return nullptr;
    jsize index = 0;
    for (const std::wstring& text : texts) {
        const jstring string = MakeJavaString(env, text);
        if (string == nullptr) return nullptr;
        env->SetObjectArrayElement(array, index++, string);
        env->DeleteLocalRef(string);
        if (env->ExceptionCheck()) return nullptr;
    }
    return array;
}

jobject NewJavaObject(JNIEnv* env, const char* className, const char* signature, ...) {
    const jclass type = env->FindClass(className);
    if (type == nullptr) return nullptr;
    const jmethodID constructor = env->GetMethodID(type, "<init>", signature);
    if (constructor == nullptr) return nullptr;
    va_list arguments;
    va_start(arguments, signature);
    const jobject object = env->NewObjectV(type, constructor, arguments);
    va_end(arguments);
    return env->ExceptionCheck() ? nullptr : object;
}

jobject NewPrintStream(JNIEnv* env, jobject outputStream) {
    return NewJavaObject(env, "java/io/PrintStream", "(Ljava/io/OutputStream;)V", outputStream);
}

void CallSystemMethod(JNIEnv* env, const char* name, const char* signature, ...) {
    const jclass system = env->FindClass("java/lang/System");
    if (system == nullptr) return;
    const jmethodID method = env->GetStaticMethodID(system, name, signature);
    if (method == nullptr) return;
    va_list arguments;
    va_start(arguments, signature);
    env->CallStaticVoidMethodV(system, method, arguments);
    va_end(arguments);
}

bool DescribePending(JNIEnv* env) {
    if (!env->ExceptionCheck()) return false;
    env->ExceptionDescribe();
    return true;
}

}  // namespace tarn
