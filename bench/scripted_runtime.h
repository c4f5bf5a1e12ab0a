#pragma once

#include "bench/workspace.h"

namespace tarn::bench {

/// Lays out `scratch\scripted_jre`, a runtime whose jvm.dll only takes the time, if it is not there
/// yet; its home.
std::filesystem::path ScriptedRuntime(const Workspace& workspace);

/// An application on that runtime, with these settings besides.
InstalledApp InstallScriptedApp(const Workspace& workspace, const std::wstring& name,
                                const std::wstring& classPath = L"C:\\none.jar",
                                const std::wstring& moreSettings = {});

/// Starts the program with the arguments; milliseconds from the start of the process to
/// JNI_CreateJavaVM.
double ToCreateJavaVm(const InstalledApp& app, const std::wstring& arguments = {});

}  // namespace tarn::bench
