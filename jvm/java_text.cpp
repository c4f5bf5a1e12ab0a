#include "jvm/java_text.h"

namespace tarn {
namespace {

// Java's own width, whatever the width of a wide character is here.
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
    // One of these for each of a thousand arguments would otherwise stay until `main` returns.
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

}  // namespace tarn
