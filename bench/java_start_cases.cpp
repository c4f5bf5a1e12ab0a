// Real runtimes: start of the process to the first line of main, and to its end; and the private
// memory and the loaded libraries at main.
#include "bench/bench_case.h"
#include "bench/timed_process.h"
#include "bench/workspace.h"

namespace tarn::bench {

namespace {

struct JavaVersion {
    const wchar_t* version;
    int rounds;
};
// The goals are those of the two newest.
constexpr JavaVersion kVersions[] = {{L"11", 8}, {L"17", 8}, {L"21", 15}, {L"25", 15}};
constexpr const char* kToMain = "to main, ms";
constexpr const char* kPeak = "peak of private memory until main, KiB";
constexpr int kHeldRounds = 3;  // memory and libraries are the same in every run, or nearly

struct CommandLine {
    std::string name;
    std::wstring program;
    std::wstring text;
};

// The same application with the same options, started in three ways.
std::vector<CommandLine> StartersFor(const Workspace& workspace, const std::wstring& version) {
    const std::filesystem::path home = workspace.runtimes / version;
    const std::wstring jar = (workspace.tools / L"bench.jar").wstring();
    const InstalledApp app =
        InstallApp(workspace, L"java" + version,
                   // Server: 11 also has a client JVM, javaw.exe takes the server one.
                   L"[Java Runtime Environment]\r\nMain Class=bench.Stamp\r\nJVM Type=server\r\n"
                   L"JRE Path=" +
                       home.wstring() + L"\r\n[Class Path]\r\nClass Path=" + jar + L"\r\n");
    const std::wstring launcher = app.program.wstring();
    const std::wstring host = (workspace.tools / L"bare_host.exe").wstring();
    const std::wstring javaw = (home / L"bin" / L"javaw.exe").wstring();
    return {
        {"launcher", launcher, Quoted(launcher)},
        {"bare host", host,
         Quoted(host) + L" " + Quoted(JvmLibrary(home).wstring()) + L" 0 bench.Stamp " +
             Quoted(L"-Djava.class.path=" + jar + L";")},
        {"javaw.exe", javaw, Quoted(javaw) + L" -cp " + Quoted(jar) + L" bench.Stamp"},
    };
}

std::string Narrow(const std::wstring& version) {
    return {version.begin(), version.end()};
}

}  // namespace

std::vector<Case> JavaStartCases(const Workspace& workspace) {
    std::vector<Case> cases;
    for (const JavaVersion& java : kVersions) {
        const std::wstring version = java.version;
        Case result;
        result.name = "Java " + Narrow(version) + ": start to main";
        result.rounds = java.rounds;
        result.quantities = {kToMain, "to exit, ms"};
        for (const CommandLine& line : StartersFor(workspace, version))
            result.contenders.push_back({line.name, [line] {
                                             const ProcessTimes times =
                                                 RunTimed(line.program, line.text);
                                             return Sample{times.toMark, times.toExit};
                                         }});
        result.budgets = {{kToMain, "launcher", "bare host", Budget::Kind::RatioAtMost, 1.05},
                          {kToMain, "javaw.exe", "launcher", Budget::Kind::RatioAtLeast, 1.2}};
        cases.push_back(std::move(result));
    }
    return cases;
}

std::vector<Case> MemoryCases(const Workspace& workspace) {
    std::vector<Case> cases;
    for (const JavaVersion& java : kVersions) {
        const std::wstring version = java.version;
        Case result;
        result.warmUpRounds = 1;
        result.name = "Java " + Narrow(version) + ": memory and libraries at main";
        result.quantities = {"private memory, KiB", kPeak, "loaded libraries"};
        result.rounds = kHeldRounds;
        for (const CommandLine& line : StartersFor(workspace, version))
            result.contenders.push_back(
                {line.name, [line] {
                     const ProcessTimes held = RunTimed(line.program, line.text, {.hold = true});
                     return Sample{held.privateKiB, held.peakPrivateKiB, held.libraries};
                 }});
        result.budgets = {{kPeak, "launcher", "bare host", Budget::Kind::DifferenceAtMost, 1536}};
        cases.push_back(std::move(result));
    }
    return cases;
}

}  // namespace tarn::bench
