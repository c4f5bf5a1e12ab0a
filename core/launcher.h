#pragma once

#include <string>
#include <vector>

#include "base/one_shot_action.h"
#include "instance/single_instance.h"
#include "jvm/exit_hooks.h"
#include "jvm/jvm_loader.h"
#include "jvm/jvm_options.h"
#include "runtime/find_runtime.h"
#include "settings/settings.h"
#include "ui/messages/error_reporter.h"
#include "ui/splash/splash.h"

namespace tarn {

/// Exit code of a failed start.
inline constexpr int kFailedStart = -1;

/// One launch, from the command line to the exit code: the records of the stages and the order of
/// the steps. Lives as long as the process's entry function.
class Launcher {
  public:
    Launcher() = default;
    Launcher(const Launcher&) = delete;
    Launcher& operator=(const Launcher&) = delete;

    /// Performs the launch up to the choice of a runtime. Returns false when the launch ends there;
    /// failures that have a message have then been reported.
    bool Init();

    /// Starts the application and waits until `main` has returned. Returns the exit code.
    int Run();

  private:
    /// Makes the executable's folder the current directory.
    void UseLauncherFolder() const;
    /// Lets the user browse for a runtime and remembers it. Returns false when there is none.
    bool ShowJreNotFound();

    // Members are destroyed in reverse order: the splash is closed first, then the listener and the
    // shared objects of a single instance, and the action is invoked last, unless it has been.
    OneShotAction launchFailureAction_;
    std::vector<std::wstring> arguments_;
    Settings settings_;
    RuntimeChoice runtime_;
    JvmInstance jvmInstance_;
    ExitHooks exitHooks_;
    SingleInstance singleInstance_{HandOffTarget{settings_, jvmInstance_.javaVm}};
    Splash splash_;
    ErrorReporter errors_{splash_.splashWindowHandle};
};

}  // namespace tarn
