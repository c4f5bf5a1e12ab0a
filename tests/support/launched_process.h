#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "base/handles.h"
#include "tests/support/wait.h"

namespace tarn::test {

/// How a process is started.
struct Start {
    std::wstring program;
    std::wstring commandLine;  ///< whole and exact, the program's own name included
    std::wstring directory;    ///< the working directory; empty: this process's own
    /// Set for the process; no value: taken out of its environment.
    std::map<std::wstring, std::optional<std::wstring>> environment;
    std::wstring outputFile;  ///< where its standard output goes; empty: nowhere
    std::wstring errorFile;
    /// A library that is in the process before its first instruction; empty: none.
    std::wstring library;
};

/// A process that a test started. Ends with it at the latest.
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

    /// Waits for the end and gives the exit code; a process that goes on for longer is a failure
    /// of the test and has none.
    std::optional<std::int32_t> ExitCode(std::chrono::milliseconds patience = kPatience) const;

    /// Ends the process from outside.
    void Terminate();

  private:
    UniqueHandle process_;
    DWORD id_ = 0;
    DWORD threadId_ = 0;
};

}  // namespace tarn::test
