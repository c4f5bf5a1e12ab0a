#pragma once

#include "base/windows.h"
#include "jvm/jvm_loader.h"
#include "jvm/jvm_options.h"
#include "settings/settings.h"
#include "ui/messages/error_reporter.h"
#include "ui/splash/splash.h"

namespace tarn {

/// What the Java thread needs. Written before the thread starts; only `jvm` and `splash` change
/// while it runs.
struct JavaLaunch {
    const Settings& settings;
    const JvmOptions& options;
    /// Set just before `main` is called; null when no other thread waits for it.
    HANDLE readyEvent;
    JvmInstance& jvm;
    Splash& splash;
    const ErrorReporter& errors;
};

/// Finds the application's main class and calls its `main`, on the thread that created the JVM.
/// The class is looked up through `sun.launcher.LauncherHelper`, which knows modular runtimes, else
/// with `FindClass`.
///
/// Returns true when `main` was called, whether it returned or threw an exception, and the thread
/// could be detached from the JVM. Failures are reported in a box, or by `ExceptionDescribe` when
/// Java threw the exception. Does not return when the settings allow an IBM runtime.
bool RunMainClass(JNIEnv* env, const JavaLaunch& launch);

}  // namespace tarn
