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
    const InstalledApp app = InstallScriptedApp(workspace, L"scripted");

    Case result;
    result.name = "Process start to JNI_CreateJavaVM";
    result.quantities = {"to JNI_CreateJavaVM, ms", "to exit, ms"};
    const std::wstring launcher = app.program.wstring();
    result.contenders.push_back(
        {"launcher", [launcher] { return Times(RunTimed(launcher, Quoted(launcher))); }});
    const std::wstring host = (workspace.tools / L"bare_host.exe").wstring();
    const std::wstring hostLine = Quoted(host) + L" " +
                                  Quoted(JvmLibrary(ScriptedRuntime(workspace)).wstring()) +
                                  L" 0 bench.Stamp \"-Djava.class.path=C:\\none.jar;\"";
    result.contenders.push_back(
        {"bare host", [host, hostLine] { return Times(RunTimed(host, hostLine)); }});
    result.budgets = {
        {"to JNI_CreateJavaVM, ms", "launcher", "bare host", Budget::Kind::RatioAtMost, 1.15}};
    return {result};
}

}  // namespace tarn::bench
