#pragma once

#include <jni.h>

namespace tarn {

/// An object made by the constructor of that signature; null when the class, the constructor or
/// the object is missing, or when the constructor left an exception pending. A local reference.
template <typename... Arguments>
jobject NewJavaObject(JNIEnv* env, const char* className, const char* signature,
                      Arguments... arguments) {
    const jclass type = env->FindClass(className);
    if (type == nullptr) return nullptr;
    const jmethodID constructor = env->GetMethodID(type, "<init>", signature);
    if (constructor == nullptr) return nullptr;
    const jobject object = env->NewObject(type, constructor, arguments...);
    return env->ExceptionCheck() ? nullptr : object;
}

/// A `PrintStream` on that `OutputStream`, without automatic flush; null as above.
jobject NewPrintStream(JNIEnv* env, jobject outputStream);

/// Describes the pending exception, if there is one, on the standard error, which clears it.
/// Returns whether there was one.
bool DescribePending(JNIEnv* env);

}  // namespace tarn
