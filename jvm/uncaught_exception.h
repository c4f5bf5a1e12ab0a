#pragma once

#include <jni.h>

namespace tarn {

/// Handles the exception that `main` ended with, which is pending. Without `failureCheck` it stays
/// pending. With it, the user sees the stack trace in the dialog "Java Exception" and can stop the
/// application, which then ends through `System.exit` with exit code -1. Returns when the user
/// ignores the exception, when there is no trace to show, and when `System.exit` fails.
void HandleUncaughtException(JNIEnv* env, bool failureCheck);

}  // namespace tarn
