#pragma once

#include <jni.h>

#include <string>
#include <string_view>
#include <vector>

namespace tarn {

/// Makes a `java.lang.String` of UTF-16 code units, which are copied unchanged. Returns a local
/// reference, or null on any failure; an exception that Java threw is then pending.
jstring MakeJavaString(JNIEnv* env, std::wstring_view text);

/// Makes a `String[]`. Returns a local reference or null, as `MakeJavaString`.
jobjectArray MakeStringArray(JNIEnv* env, const std::vector<std::wstring>& texts);

/// Constructs an object with the constructor of that signature, whose arguments follow. Returns a
/// local reference, or null when the class, the constructor or the object is missing or an
/// exception is pending afterwards.
jobject NewJavaObject(JNIEnv* env, const char* className, const char* signature, ...);

/// Constructs a `java.io.PrintStream` on an `OutputStream`, without automatic flush. Returns a
/// local reference or null, as `NewJavaObject`.
jobject NewPrintStream(JNIEnv* env, jobject outputStream);

/// Calls a static method of `java.lang.System` without a result, whose arguments follow. Does
/// nothing when the class or the method is missing; an exception can be pending afterwards.
void CallSystemMethod(JNIEnv* env, const char* name, const char* signature, ...);

/// Prints a pending exception on the standard error and clears it (`ExceptionDescribe`). Returns
/// whether one was pending.
bool DescribePending(JNIEnv* env);

}  // namespace tarn
