// From the start of the process to JNI_CreateJavaVM, without Java.
#include "bench/bench_case.h"
#include "bench/timed_process.h"
#include "bench/workspace.h"

namespace tarn::bench {

namespace {

Sample Times(const ProcessTimes& times) {
    return {times.toMark, times.toExit};
}

}  // namespace

std::vector<Case> ScriptedRuntimeCases(const Workspace& workspace) {
    const InstalledApp app =
        InstallApp(workspace, L"scripted",
                   L"[Java Runtime Environment]\r\nMain Class=bench.Stamp\r\nJRE Path=" +
                       (workspace.scratch / L"scripted_jre").wstring() +
                       L"\r\n[Class Path]\r\nClass Path=C:\\none.jar\r\n");
    const std::filesystem::path library =
        workspace.scratch / L"scripted_jre" / L"bin" / L"server" / L"jvm.dll";
    std::filesystem::create_directories(library.parent_path());
    std::filesystem::copy_file(workspace.tools / L"stamp_jvm.dll", library,
                               std::filesystem::copy_options::overwrite_existing);

    Case result;
    result.name = "Process start to JNI_CreateJavaVM";
    result.quantities = {"to JNI_CreateJavaVM, ms", "to exit, ms"};
    const std::wstring launcher = app.program.wstring();
    result.contenders.push_back(
        {"launcher", [launcher] { return Times(RunTimed(launcher, Quoted(launcher))); }});
    const std::wstring host = (workspace.tools / L"bare_host.exe").wstring();
    const std::wstring hostLine = Quoted(host) + L" " + Quoted(library.wstring()) +
                                  L" 0 bench.Stamp \"-Djava.class.path=C:\\none.jar;\"";
    result.contenders.push_back(
        {"bare host", [host, hostLine] { return Times(RunTimed(host, hostLine)); }});
    result.budgets = {
        {"to JNI_CreateJavaVM, ms", "launcher", "bare host", Budget::Kind::RatioAtMost, 1.15}};
    return {result};
}

}  // namespace tarn::bench
