#pragma once

#include <jni.h>

#include <string>

namespace tarn {

/// Handles the exception that `main` ended with, which is pending. Without `failureCheck` it stays
/// pending. With it, the user sees the stack trace in the dialog "Java Exception" and can stop the
/// application, which then ends through `System.exit` with exit code -1. Returns when the user
/// ignores the exception, when there is no trace to show, and when `System.exit` fails.
void HandleUncaughtException(JNIEnv* env, bool failureCheck);

/// The button that the user pressed.
enum class JavaExceptionAnswer { Ignore, Stop };

/// Shows the modal dialog "Java Exception" with a stack trace (`DialogBoxParamW`). The owner is the
/// active window of the calling thread, if it has one. A dialog that cannot be created counts as
/// Stop, with `ERROR_OUTOFMEMORY` as the last error.
JavaExceptionAnswer ShowJavaException(const std::wstring& trace);

}  // namespace tarn
