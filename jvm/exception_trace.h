#pragma once

#include <jni.h>

#include <string>

namespace tarn {

/// What the exception's `printStackTrace` prints; empty when anything on the way is missing. No
/// exception may be pending. The JVM's modified UTF-8 is read as text in the code page of the
/// thread's locale, so that only ASCII is sure to look as it should.
std::wstring ExceptionTrace(JNIEnv* env, jthrowable exception);

}  // namespace tarn
