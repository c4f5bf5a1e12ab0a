#include "core/launcher.h"

#include "base/arguments.h"
#include "base/handles.h"
#include "base/paths.h"
#include "base/text.h"
#include "base/windows.h"
#include "jvm/java_thread.h"
#include "jvm/jvm_loader.h"
#include "jvm/jvm_options.h"
#include "jvm/native_paths.h"
#include "resources/ids.h"
#include "runtime/pe_header.h"
#include "settings/jre_path_store.h"
#include "settings/settings.h"
#include "ui/dialogs/jre_not_found_dialog.h"

namespace tarn {
namespace {

// Starts the paired 32-bit launcher with this process's own command line, directory and
// environment. With `waitForIt`, waits for the process and returns its exit code; returns 0 without
// `waitForIt` and when the process cannot be started.
int StartPairedLauncher(const std::wstring& program, bool waitForIt) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    // `CreateProcessW` may write to the command line it is given.
    std::wstring commandLine = GetCommandLineW();
    if (!CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr,
                        nullptr, &startup, &started)) {
        return 0;
    }
    const UniqueHandle thread(started.hThread);
    const UniqueHandle process(started.hProcess);
    if (!waitForIt) return 0;
    // -1 when the exit code is unavailable, because success is not known.
    DWORD exitCode = static_cast<DWORD>(-1);
    if (WaitForSingleObject(process.get(), INFINITE) == WAIT_OBJECT_0) {
        GetExitCodeProcess(process.get(), &exitCode);
    }
    return static_cast<int>(exitCode);
}

}  // namespace

bool Launcher::Init() {
    arguments_ = ArgumentsOf(GetCommandLineW());
    if (!ReadSettings(errors_, settings_)) return false;
    if (!singleInstance_.SetupSingleInstance(arguments_)) return false;
    if (singleInstance_.isSecondInstance()) return true;
    if (settings_.overrideWorkingDir) UseLauncherFolder();
    if (FindRuntime(settings_.policy, settings_.pairProduct, runtime_)) return true;
    if (FindFurtherRuntime(settings_.policy, ReadFurtherSources(settings_), runtime_)) return true;
    return ShowJreNotFound();
}

// The exit codes of the steps differ on purpose (docs/developer/compatibility.md).
int Launcher::Run() {
    if (runtime_.pairedLaunch) {
        return StartPairedLauncher(settings_.pairProduct, settings_.pairReturnCode);
    }
    if (singleInstance_.isSecondInstance()) return singleInstance_.WaitForAnswer();

    const std::wstring& jvmLibraryPath = runtime_.jvmLibraryPath;
    std::string libraryPathOption = PrepareNativePaths(settings_, jvmLibraryPath);
    if (!SuppressesSplash(arguments_) &&
        !splash_.ShowSplash(jvmLibraryPath, launchFailureAction_)) {
        return 0;
    }
    if (!LoadJvmLibrary(errors_, jvmLibraryPath, jvmInstance_.entryPoints)) return kFailedStart;
    const JvmOptions jvmOptions = BuildOptions(LaunchKind::Real, errors_, jvmLibraryPath,
                                               std::move(libraryPathOption), std::move(arguments_));
    JavaLaunch launch{settings_,    jvmOptions, singleInstance_.readyEvent(),
                      jvmInstance_, splash_,    errors_};
    if (RunJavaThread(launch) == 0) return 0;
    launchFailureAction_.Invoke();
    return kFailedStart;
}

bool Launcher::ShowJreNotFound() {
    if (!ShowJreNotFoundDialog(settings_.policy, runtime_)) return false;
    RememberRuntime(settings_, runtime_.runtimeHome);
    runtime_.pairedLaunch = NeedsPairedLauncher(runtime_.jvmLibraryPath, settings_.pairProduct);
    return true;
}

void Launcher::UseLauncherFolder() const {
    const std::optional<std::wstring> program = ModulePath();
    if (!program) {
        errors_.ShowWindowsFailure(IDS_NO_MODULE_PATH);
        return;
    }
    const std::wstring folder(CutAtLast(*program, L'\\'));
    SetCurrentDirectoryW(folder.c_str());
}

}  // namespace tarn
