#include "jvm/uncaught_exception.h"

#include <string>

#include "jvm/exception_trace.h"
#include "jvm/exit_application.h"
#include "ui/java_exception_dialog.h"

namespace tarn {
namespace {

/// Whether the user wants the application to stop. Without a text there is nothing to ask about.
bool UserStops(JNIEnv* env, jthrowable exception) {
    const std::wstring trace = ExceptionTrace(env, exception);
    return !trace.empty() && ShowJavaException(trace) == JavaExceptionAnswer::Stop;
}

}  // namespace

void HandleUncaughtException(JNIEnv* env, bool failureCheck) {
    if (!failureCheck) return;
    // Java takes no calls with an exception pending, so the trace is asked of one taken off.
    const jthrowable exception = env->ExceptionOccurred();
    if (exception == nullptr) return;
    env->ExceptionClear();
    if (UserStops(env, exception)) ExitJavaApplication(env, -1);
}

}  // namespace tarn
