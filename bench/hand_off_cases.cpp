// A second launch that hands over to a running application: start of its process to the first line
// of `secondaryMain`, and to its exit with the answer.
#include <fstream>
#include <memory>
#include <stdexcept>

#include "base/handles.h"
#include "bench/bench_case.h"
#include "bench/timed_process.h"
#include "bench/workspace.h"

namespace tarn::bench {

namespace {

constexpr int kLongestStartTenths = 600;

// The first instance; started by the first launch that needs it, ended with the benchmark.
class FirstInstance {
  public:
    explicit FirstInstance(const std::wstring& program) {
        std::filesystem::remove(StampFile());
        SetEnvironmentVariableW(L"TARN_BENCH_STAMP", StampFile().c_str());
        SetEnvironmentVariableW(L"TARN_BENCH_HOLD", nullptr);
        STARTUPINFOW startup{};
        startup.cb = sizeof(startup);
        startup.dwFlags = STARTF_USESTDHANDLES;
        PROCESS_INFORMATION process{};
        std::wstring line = Quoted(program);
        if (!CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                            nullptr, &startup, &process))
            throw std::runtime_error("the first instance does not start");
        const UniqueHandle thread(process.hThread);
        process_.reset(process.hProcess);
        for (int i = 0; i < kLongestStartTenths && !std::filesystem::exists(StampFile()); ++i)
            if (WaitForSingleObject(process_.get(), 100) != WAIT_TIMEOUT) break;
        if (!std::filesystem::exists(StampFile()))
            throw std::runtime_error("the first instance does not get to main");
    }
    FirstInstance(const FirstInstance&) = delete;
    FirstInstance& operator=(const FirstInstance&) = delete;
    ~FirstInstance() {
        if (!process_) return;
        TerminateProcess(process_.get(), 0);
        // The folder that its program lies in is removed next.
        WaitForSingleObject(process_.get(), INFINITE);
    }

  private:
    UniqueHandle process_;
};

}  // namespace

std::vector<Case> HandOffCases(const Workspace& workspace) {
    const std::filesystem::path home = workspace.runtimes / L"21";
    const InstalledApp app =
        InstallApp(workspace, L"handoff",
                   L"[Application]\r\nSingle Instance=yes\r\n"
                   L"[Java Runtime Environment]\r\nMain Class=bench.Second\r\nJRE Path=" +
                       home.wstring() + L"\r\n[Class Path]\r\nClass Path=" +
                       (workspace.tools / L"bench.jar").wstring() + L"\r\n");
    const std::wstring program = app.program.wstring();
    const auto first = std::make_shared<std::unique_ptr<FirstInstance>>();

    Case result;
    result.name = "Java 21: second launch";
    result.quantities = {"to secondaryMain, ms", "to exit, ms"};
    result.contenders = {{"int form", [program, first] {
                              if (!*first) *first = std::make_unique<FirstInstance>(program);
                              const ProcessTimes times =
                                  RunTimed(program, Quoted(program) + L" document.txt");
                              return Sample{times.toMark, times.toExit};
                          }}};
    return {result};
}

}  // namespace tarn::bench
