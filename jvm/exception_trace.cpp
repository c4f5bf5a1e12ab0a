#include "jvm/exception_trace.h"

#include "base/ansi_text.h"
#include "jvm/java_objects.h"

namespace tarn {
namespace {

/// False when there is no such method. An exception out of the method itself is described only:
/// what was printed until then is worth showing.
bool PrintStackTrace(JNIEnv* env, jthrowable exception, jobject stream) {
    const jclass type = env->GetObjectClass(exception);
    if (type == nullptr) return false;
    const jmethodID print = env->GetMethodID(type, "printStackTrace", "(Ljava/io/PrintStream;)V");
    if (print == nullptr) return false;
    env->CallVoidMethod(exception, print, stream);
    DescribePending(env);
    return true;
}

/// What the object's `toString` gives, null when there is none. An exception out of it is
/// described.
jstring TextOf(JNIEnv* env, jobject object) {
    const jclass type = env->GetObjectClass(object);
    if (type == nullptr) return nullptr;
    const jmethodID toString = env->GetMethodID(type, "toString", "()Ljava/lang/String;");
    if (toString == nullptr) return nullptr;
    const jobject text = env->CallObjectMethod(object, toString);
    DescribePending(env);
    return static_cast<jstring>(text);
}

}  // namespace

std::wstring ExceptionTrace(JNIEnv* env, jthrowable exception) {
    const jobject buffer = NewJavaObject(env, "java/io/ByteArrayOutputStream", "()V");
    if (buffer == nullptr) return {};
    const jobject stream = NewPrintStream(env, buffer);
    if (stream == nullptr || !PrintStackTrace(env, exception, stream)) return {};
    const jstring text = TextOf(env, buffer);
    if (text == nullptr) return {};
    const char* characters = env->GetStringUTFChars(text, nullptr);
    if (characters == nullptr) return {};
    std::wstring trace = FromThreadAnsi(characters);
    env->ReleaseStringUTFChars(text, characters);
    return trace;
}

}  // namespace tarn
