#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "base/handles.h"
#include "tests/support/wait.h"

namespace tarn::test {

/// The options of a start.
struct Start {
    std::wstring program;
    std::wstring commandLine;  ///< complete, with the program's own name
    std::wstring directory;    ///< the working directory; empty: that of this process
    /// Variables of the process; no value: removed from its environment.
    std::map<std::wstring, std::optional<std::wstring>> environment;
    std::wstring desktop;     ///< WINDOWSTATION\DESKTOP; empty: those of this process
    std::wstring outputFile;  ///< its standard output; empty: none
    std::wstring errorFile;
    /// A library to load before the first instruction; empty: none.
    std::wstring library;
};

/// A process that a test has started. The destructor ends it if it is still running.
class LaunchedProcess {
  public:
    explicit LaunchedProcess(const Start& start);
    ~LaunchedProcess();
    LaunchedProcess(const LaunchedProcess&) = delete;
    LaunchedProcess& operator=(const LaunchedProcess&) = delete;

    bool started() const { return static_cast<bool>(process_); }
    DWORD id() const { return id_; }
    DWORD threadId() const { return threadId_; }
    HANDLE handle() const { return process_.get(); }

    bool HasEnded() const;

    /// Waits for the end and returns the exit code. After the time limit the test fails and there
    /// is no value.
    std::optional<std::int32_t> ExitCode(std::chrono::milliseconds timeLimit = kTimeLimit) const;

    /// Terminates the process (`TerminateProcess`).
    void Terminate();

  private:
    UniqueHandle process_;
    DWORD id_ = 0;
    DWORD threadId_ = 0;
};

}  // namespace tarn::test
