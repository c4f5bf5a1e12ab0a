#include "jvm/uncaught_exception.h"

#include <string>

#include "base/ansi_text.h"
#include "jvm/java_exception_dialog.h"
#include "jvm/jni_util.h"

namespace tarn {
namespace {

jmethodID FindMethod(JNIEnv* env, jobject object, const char* name, const char* signature) {
    const jclass type = env->GetObjectClass(object);
    return type != nullptr ? env->GetMethodID(type, name, signature) : nullptr;
}

// False when the method is missing. An exception thrown by the method is only described: what it
// has printed by then is still shown.
bool PrintStackTrace(JNIEnv* env, jthrowable exception, jobject stream) {
    const jmethodID print =
        FindMethod(env, exception, "printStackTrace", "(Ljava/io/PrintStream;)V");
    if (print == nullptr) return false;
    env->CallVoidMethod(exception, print, stream);
    DescribePending(env);
    return true;
}

jstring CallToString(JNIEnv* env, jobject object) {
    const jmethodID toString = FindMethod(env, object, "toString", "()Ljava/lang/String;");
    if (toString == nullptr) return nullptr;
    const jobject text = env->CallObjectMethod(object, toString);
    DescribePending(env);
    return static_cast<jstring>(text);
}

// What `printStackTrace` prints; empty on any failure. No exception may be pending.
std::wstring ExceptionTrace(JNIEnv* env, jthrowable exception) {
    const jobject buffer = NewJavaObject(env, "java/io/ByteArrayOutputStream", "()V");
    if (buffer == nullptr) return {};
    const jobject stream = NewPrintStream(env, buffer);
    if (stream == nullptr || !PrintStackTrace(env, exception, stream)) return {};
    const jstring text = CallToString(env, buffer);
    if (text == nullptr) return {};
    const char* characters = env->GetStringUTFChars(text, nullptr);
    if (characters == nullptr) return {};
    // Modified UTF-8 read as ANSI text: docs/developer/compatibility.md.
    std::wstring trace = FromThreadAnsi(characters);
    env->ReleaseStringUTFChars(text, characters);
    return trace;
}

bool UserStops(JNIEnv* env, jthrowable exception) {
    const std::wstring trace = ExceptionTrace(env, exception);
    return !trace.empty() && ShowJavaException(trace) == JavaExceptionAnswer::Stop;
}

// Calls `System.exit`, which runs the shutdown hooks and ends the process. Returns on a failure
// only. No exception may be pending.
void ExitJavaApplication(JNIEnv* env, jint code) {
    CallSystemMethod(env, "exit", "(I)V", code);
    DescribePending(env);
}

}  // namespace

void HandleUncaughtException(JNIEnv* env, bool failureCheck) {
    if (!failureCheck) return;
    // JNI allows no calls of methods while an exception is pending.
    const jthrowable exception = env->ExceptionOccurred();
    if (exception == nullptr) return;
    env->ExceptionClear();
    if (UserStops(env, exception)) ExitJavaApplication(env, -1);
}

}  // namespace tarn
