#pragma once

#include <jni.h>

namespace tarn {

/// Calls `java.lang.System.exit`, which runs the application's shutdown hooks and ends the process
/// with that code. A JVM comes back from it only on a failure: false. No exception may be pending.
bool ExitJavaApplication(JNIEnv* env, jint code);

}  // namespace tarn
