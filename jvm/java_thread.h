#pragma once

#include "base/windows.h"
#include "jvm/main_class.h"

namespace tarn {

/// Runs the application on a thread of its own (`CreateThread`) and waits until it has ended. The
/// stack size is that of the options, else the runtime's default, else that of the executable. If
/// the thread cannot be created, the calling thread does its work.
///
/// Returns the thread's exit code: 0 when `main` has returned, 1 when the JVM or `main` could not
/// be started, another one when native code of the application has ended the thread.
DWORD RunJavaThread(JavaLaunch& launch);

}  // namespace tarn
