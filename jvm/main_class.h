#pragma once

#include <jni.h>

#include <string>
#include <vector>

#include "base/windows.h"
#include "jvm/jvm_instance.h"
#include "settings/settings.h"
#include "ui/messages/error_reporter.h"
#include "ui/splash.h"

namespace tarn {

/// Finds the application's main class and calls its `main`, on the thread that created the JVM.
/// Signals `readyEvent` (null when there is none) just before the call. Returns true when `main`
/// was called, however it ended, and the thread could be detached from the JVM; false otherwise,
/// after the user has been told where there is a message. Does not return at all when the settings
/// allow an IBM runtime: such an application ends through `System.exit`.
bool RunMainClass(JNIEnv* env, const JvmInstance& machine, const Settings& settings,
                  const std::vector<std::wstring>& arguments, HANDLE readyEvent, Splash& splash,
                  const ErrorReporter& errors);

}  // namespace tarn
