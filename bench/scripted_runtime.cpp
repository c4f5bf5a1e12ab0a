#include "bench/scripted_runtime.h"

#include "bench/timed_process.h"

namespace tarn::bench {

std::filesystem::path ScriptedRuntime(const Workspace& workspace) {
    std::filesystem::path home = workspace.scratch / L"scripted_jre";
    const std::filesystem::path library = home / L"bin" / L"server" / L"jvm.dll";
    std::filesystem::create_directories(library.parent_path());
    std::filesystem::copy_file(workspace.tools / L"stamp_jvm.dll", library,
                               std::filesystem::copy_options::skip_existing);
    return home;
}

InstalledApp InstallScriptedApp(const Workspace& workspace, const std::wstring& name,
                                const std::wstring& classPath, const std::wstring& moreSettings) {
    return InstallApp(workspace, name,
                      L"[Java Runtime Environment]\r\nMain Class=bench.Stamp\r\nJRE Path=" +
                          ScriptedRuntime(workspace).wstring() +
                          L"\r\n[Class Path]\r\nClass Path=" + classPath + L"\r\n" + moreSettings);
}

double ToCreateJavaVm(const InstalledApp& app, const std::wstring& arguments) {
    const std::wstring program = app.program.wstring();
    return RunTimed(program, Quoted(program) + L' ' + arguments).toMark;
}

}  // namespace tarn::bench
