#pragma once

#include <jni.h>

namespace tarn {

/// What happens when `main` ended with an exception, which is still pending. Without
/// `failureCheck` nothing: it stays pending. With it the user sees the exception and may stop the
/// application, which then ends the process with exit code -1.
void HandleUncaughtException(JNIEnv* env, bool failureCheck);

}  // namespace tarn
