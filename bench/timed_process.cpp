#include "bench/timed_process.h"

#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "base/windows.h"

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

// 0 while the line is not there whole.
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

double PrivateKiB(HANDLE process) {
    PROCESS_MEMORY_COUNTERS counters{};
    if (!GetProcessMemoryInfo(process, &counters, sizeof(counters)))
        Fail("no memory counters, error " + std::to_string(GetLastError()));
    // The same as PrivateUsage on Windows; Wine fills in this one only.
    return static_cast<double>(counters.PagefileUsage) / 1024;
}

// 0 when the process ends unseen.
double WaitUntilSeen(const PROCESS_INFORMATION& process, const Watch& watch, double start) {
    do {
        if (watch(process.dwProcessId)) return (Nanoseconds() - start) / 1e6;
    } while (WaitForSingleObject(process.hProcess, 1) == WAIT_TIMEOUT &&
             Nanoseconds() - start < kLongestRunMilliseconds * 1e6);
    return 0;
}

}  // namespace

std::filesystem::path StampFile() {
    return OwnTemporaryFile(L"tarn_bench_stamp_");
}

ProcessTimes RunTimed(const std::wstring& program, const std::wstring& commandLine, bool hold,
                      const Watch& watch) {
    const std::filesystem::path stampFile = StampFile();
    const std::filesystem::path releaseFile = OwnTemporaryFile(L"tarn_bench_release_");
    std::filesystem::remove(stampFile);
    std::filesystem::remove(releaseFile);
    SetEnvironmentVariableW(L"TARN_BENCH_STAMP", stampFile.c_str());
    SetEnvironmentVariableW(L"TARN_BENCH_HOLD", hold ? releaseFile.c_str() : nullptr);

    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    // No standard handles, as for a program that is started from the desktop.
    startup.dwFlags = STARTF_USESTDHANDLES;
    PROCESS_INFORMATION process{};
    std::wstring line = commandLine;
    const double start = Nanoseconds();
    if (!CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &startup, &process))
        Fail("CreateProcessW failed, error " + std::to_string(GetLastError()));
    ProcessTimes times;
    if (watch) times.toSeen = WaitUntilSeen(process, watch, start);
    if (hold) {
        for (DWORD waited = 0; waited < kLongestRunMilliseconds && ReadStamp(stampFile) == 0;
             waited += 10)
            if (WaitForSingleObject(process.hProcess, 10) != WAIT_TIMEOUT) break;
        times.privateKiB = PrivateKiB(process.hProcess);
        std::ofstream{releaseFile};
    }
    const DWORD waited = WaitForSingleObject(process.hProcess, kLongestRunMilliseconds);
    const double end = Nanoseconds();
    if (waited == WAIT_TIMEOUT) TerminateProcess(process.hProcess, 99);
    DWORD exitCode = 0;
    GetExitCodeProcess(process.hProcess, &exitCode);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    if (waited != WAIT_OBJECT_0 || exitCode != 0)
        Fail(std::filesystem::path(program).filename().string() + " ended with " +
             std::to_string(static_cast<int>(exitCode)));
    const double stamp = ReadStamp(stampFile);
    if (stamp < start || stamp > end) Fail("the stamp lies outside the life of the process");
    if (watch && times.toSeen == 0) Fail("nothing was seen of the process");
    times.toMark = (stamp - start) / 1e6;
    times.toExit = (end - start) / 1e6;
    return times;
}

}  // namespace tarn::bench
