#include "bench/timed_process.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "base/windows.h"
#include "bench/workspace.h"
#include "tests/support/inject_dll.h"

#include <psapi.h>

namespace tarn::bench {

namespace {

constexpr DWORD kLongestRunMilliseconds = 120'000;

double Nanoseconds() {
    LARGE_INTEGER now{};
    LARGE_INTEGER perSecond{};
    QueryPerformanceCounter(&now);
    QueryPerformanceFrequency(&perSecond);
    return static_cast<double>(now.QuadPart) / static_cast<double>(perSecond.QuadPart) * 1e9;
}

// 0 until the line is complete.
double ReadStamp(const std::filesystem::path& file) {
    std::ifstream in(file);
    std::string line;
    if (!std::getline(in, line) || in.eof()) return 0;
    return std::stod(line);
}

std::filesystem::path OwnTemporaryFile(const std::wstring& name) {
    return std::filesystem::temp_directory_path() / (name + std::to_wstring(GetCurrentProcessId()));
}

[[noreturn]] void Fail(const std::string& what) {
    throw std::runtime_error(what);
}

void ReadMemory(HANDLE process, ProcessTimes& times) {
    PROCESS_MEMORY_COUNTERS counters{};
    if (!GetProcessMemoryInfo(process, &counters, sizeof(counters)))
        Fail("no memory counters, error " + std::to_string(GetLastError()));
    // The same as PrivateUsage on Windows; Wine only sets this one.
    times.privateKiB = static_cast<double>(counters.PagefileUsage) / 1024;
    // Wine reports the current value as the peak, so the maximum is also tracked here.
    times.peakPrivateKiB =
        std::max(times.peakPrivateKiB, static_cast<double>(counters.PeakPagefileUsage) / 1024);
}

double CountLibraries(HANDLE process) {
    HMODULE modules[1024];  // a Java program has some 40
    DWORD bytes = 0;
    if (!EnumProcessModules(process, modules, sizeof(modules), &bytes))
        Fail("no list of modules, error " + std::to_string(GetLastError()));
    const std::size_t count = bytes / sizeof(HMODULE);
    return static_cast<double>(count) - 1;
}

PROCESS_INFORMATION Start(const std::wstring& program, const std::wstring& commandLine,
                          DWORD flags) {
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    // No standard handles, like a program started from the desktop.
    startup.dwFlags = STARTF_USESTDHANDLES;
    PROCESS_INFORMATION process{};
    std::wstring line = commandLine;
    if (!CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, FALSE, flags, nullptr,
                        nullptr, &startup, &process))
        Fail("CreateProcessW failed, error " + std::to_string(GetLastError()));
    return process;
}

// 0 if the process ends before the watch returns true.
double WaitUntilSeen(const PROCESS_INFORMATION& process, const RunOptions& options, double start) {
    do {
        if (options.watch(process.dwProcessId)) return (Nanoseconds() - start) / 1e6;
    } while (WaitForSingleObject(process.hProcess, options.watchEveryMs) == WAIT_TIMEOUT &&
             Nanoseconds() - start < kLongestRunMilliseconds * 1e6);
    return 0;
}

// Closes the handles.
void WaitForEnd(const PROCESS_INFORMATION& process, const std::wstring& program) {
    const DWORD waited = WaitForSingleObject(process.hProcess, kLongestRunMilliseconds);
    if (waited == WAIT_TIMEOUT) TerminateProcess(process.hProcess, 99);
    DWORD exitCode = 0;
    GetExitCodeProcess(process.hProcess, &exitCode);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    if (waited != WAIT_OBJECT_0 || exitCode != 0)
        Fail(std::filesystem::path(program).filename().string() + " ended with " +
             std::to_string(static_cast<int>(exitCode)));
}

}  // namespace

std::filesystem::path StampFile() {
    return OwnTemporaryFile(L"tarn_bench_stamp_");
}

void RunToEnd(const std::wstring& program, const std::wstring& commandLine) {
    const PROCESS_INFORMATION process = Start(program, commandLine, 0);
    WaitForEnd(process, program);
}

ProcessTimes RunTimed(const std::wstring& program, const std::wstring& commandLine,
                      const RunOptions& options) {
    const std::filesystem::path stampFile = StampFile();
    const std::filesystem::path releaseFile = OwnTemporaryFile(L"tarn_bench_release_");
    std::filesystem::remove(stampFile);
    std::filesystem::remove(releaseFile);
    SetEnvironmentVariableW(L"TARN_BENCH_STAMP", stampFile.c_str());
    SetEnvironmentVariableW(L"TARN_BENCH_HOLD", options.hold ? releaseFile.c_str() : nullptr);

    const double start = Nanoseconds();
    const PROCESS_INFORMATION process =
        Start(program, commandLine, options.library.empty() ? 0 : CREATE_SUSPENDED);
    if (!options.library.empty()) {
        if (!test::InjectLibrary(process.hProcess, options.library))
            Fail("the library cannot be injected");
        ResumeThread(process.hThread);
    }
    ProcessTimes times;
    if (options.watch) times.toSeen = WaitUntilSeen(process, options, start);
    if (options.hold) {
        for (DWORD waited = 0; waited < kLongestRunMilliseconds && ReadStamp(stampFile) == 0;
             waited += 10) {
            if (WaitForSingleObject(process.hProcess, 10) != WAIT_TIMEOUT) break;
            ReadMemory(process.hProcess, times);
        }
        ReadMemory(process.hProcess, times);
        times.libraries = CountLibraries(process.hProcess);
        std::ofstream{releaseFile};
    }
    WaitForEnd(process, program);
    const double end = Nanoseconds();
    std::filesystem::remove(releaseFile);
    const double stamp = ReadStamp(stampFile);
    if (stamp < start || stamp > end) Fail("the stamp lies outside the lifetime of the process");
    if (options.watch && times.toSeen == 0) Fail("the watch never returned true");
    times.toMark = (stamp - start) / 1e6;
    times.toExit = (end - start) / 1e6;
    return times;
}

double ToCreateJavaVm(const InstalledApp& app, const std::wstring& arguments) {
    const std::wstring program = app.program.wstring();
    return RunTimed(program, Quoted(program) + L' ' + arguments).toMark;
}

}  // namespace tarn::bench
