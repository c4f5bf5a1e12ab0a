#pragma once

#include <string>
#include <vector>

#include "base/windows.h"
#include "jvm/jvm_instance.h"
#include "jvm/jvm_options.h"
#include "settings/settings.h"
#include "ui/messages/error_reporter.h"
#include "ui/splash.h"

namespace tarn {

/// All that the thread which runs Java needs. Written before it starts and, but for `machine`, not
/// changed while it runs.
struct JavaLaunch {
    const Settings& settings;
    const JvmOptions& options;
    const std::vector<std::wstring>& arguments;
    HANDLE readyEvent;
    JvmInstance& machine;
    Splash& splash;
    const ErrorReporter& errors;
};

/// Asks the runtime for its default Java stack size, in bytes; 0 when it names none.
std::uint64_t DefaultStackSize(const JvmEntryPoints& entryPoints);

/// Runs the application on a thread of its own with `options.threadStackSize` bytes of stack (0:
/// the executable's default) and waits until it has ended. If the thread cannot be started, the
/// calling thread does its work. Returns 0 when `main` has returned, 1 otherwise.
DWORD RunJavaThread(JavaLaunch& launch);

}  // namespace tarn
