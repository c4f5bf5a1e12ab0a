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

/// Runs the application on a thread of its own (`CreateThread`) and waits until it has ended. The
/// stack size is that of the options, else the runtime's default, else that of the executable. If
/// the thread cannot be created, the calling thread does its work.
///
/// The thread creates the JVM, finds the main class and calls its `main`. The class is looked up
/// through `sun.launcher.LauncherHelper`, which knows modular runtimes, else with `FindClass`.
/// Failures are reported in a box, or by `ExceptionDescribe` when Java threw the exception. When
/// the settings allow an IBM runtime, the thread does not end after `main`.
///
/// Returns the thread's exit code: 0 when `main` was called, whether it returned or threw an
/// exception, and the thread could be detached; 1 when the JVM or `main` could not be started;
/// another one when native code of the application has ended the thread.
DWORD RunJavaThread(JavaLaunch& launch);

}  // namespace tarn
