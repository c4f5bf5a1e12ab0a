#include "tests/support/launched_process.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/support/inject_dll.h"
#include "tests/support/text.h"

namespace tarn::test {

namespace {

struct IgnoreCase {
    bool operator()(const std::wstring& left, const std::wstring& right) const {
        return CompareStringOrdinal(left.c_str(), -1, right.c_str(), -1, TRUE) == CSTR_LESS_THAN;
    }
};

std::wstring EnvironmentBlock(
    const std::map<std::wstring, std::optional<std::wstring>>& overrides) {
    std::map<std::wstring, std::wstring, IgnoreCase> variables;
    wchar_t* const own = GetEnvironmentStringsW();
    for (const wchar_t* each = own; *each != L'\0'; each += std::wstring_view(each).size() + 1) {
        const std::wstring_view text = each;
        // The hidden ones that begin with "=" hold the drives' directories.
        const std::size_t equals = text.find(L'=', 1);
        if (equals == std::wstring_view::npos) continue;
        variables[std::wstring(text.substr(0, equals))] = text.substr(equals + 1);
    }
    FreeEnvironmentStringsW(own);
    for (const auto& [name, value] : overrides) {
        variables.erase(name);
        if (value) variables[name] = *value;
    }
    std::wstring block;
    for (const auto& [name, value] : variables) block += name + L'=' + value + L'\0';
    return block + L'\0';
}

UniqueFile OpenOutput(const std::wstring& path) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return UniqueFile(CreateFileW(path.empty() ? L"NUL" : path.c_str(), FILE_APPEND_DATA,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, OPEN_ALWAYS,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
}

UniqueFile OpenNoInput() {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return UniqueFile(CreateFileW(L"NUL", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                  &inherited, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
}

}  // namespace

LaunchedProcess::LaunchedProcess(const Start& start) {
    const UniqueFile input = OpenNoInput();
    const UniqueFile output = OpenOutput(start.outputFile);
    const UniqueFile error = OpenOutput(start.errorFile);
    STARTUPINFOW how{};
    how.cb = sizeof how;
    how.dwFlags = STARTF_USESTDHANDLES;
    how.hStdInput = input.get();
    how.hStdOutput = output.get();
    how.hStdError = error.get();
    std::wstring desktop = start.desktop;
    if (!desktop.empty()) how.lpDesktop = desktop.data();
    std::wstring block = EnvironmentBlock(start.environment);
    // CreateProcessW may write to it.
    std::vector<wchar_t> commandLine(start.commandLine.begin(), start.commandLine.end());
    commandLine.push_back(L'\0');
    const bool takesLibrary = !start.library.empty();
    // The test program suppresses Windows' error boxes for itself; a launcher started by a user
    // begins without that mode.
    const DWORD flags = CREATE_UNICODE_ENVIRONMENT | CREATE_DEFAULT_ERROR_MODE |
                        (takesLibrary ? CREATE_SUSPENDED : 0U);
    PROCESS_INFORMATION made{};
    BOOL ok = FALSE;
    DWORD startError = ERROR_SUCCESS;
    // On a busy machine Wine sometimes loses a new process before its first instruction and reports
    // this error. There is no process then, so the start can be repeated.
    WaitUntil([&] {
        ok = CreateProcessW(
            start.program.c_str(), commandLine.data(), nullptr, nullptr, TRUE, flags, block.data(),
            start.directory.empty() ? nullptr : start.directory.c_str(), &how, &made);
        startError = ok ? ERROR_SUCCESS : GetLastError();
        return startError != ERROR_INTERNAL_ERROR;
    });
    EXPECT_TRUE(ok) << "cannot start " << ToUtf8(start.program) << ", error " << startError;
    if (!ok) return;
    const UniqueHandle thread(made.hThread);
    process_.reset(made.hProcess);
    id_ = made.dwProcessId;
    threadId_ = made.dwThreadId;
    if (!takesLibrary) return;
    EXPECT_TRUE(InjectLibrary(process_.get(), start.library)) << ToUtf8(start.library);
    ResumeThread(thread.get());
}

LaunchedProcess::~LaunchedProcess() {
    Terminate();
}

bool LaunchedProcess::HasEnded() const {
    return !process_ || WaitForSingleObject(process_.get(), 0) == WAIT_OBJECT_0;
}

std::optional<std::int32_t> LaunchedProcess::ExitCode(std::chrono::milliseconds timeLimit) const {
    if (!process_) return std::nullopt;
    const auto limit = static_cast<DWORD>(timeLimit.count());
    if (WaitForSingleObject(process_.get(), limit) != WAIT_OBJECT_0) {
        ADD_FAILURE() << "process " << id_ << " did not end within " << limit << " ms";
        return std::nullopt;
    }
    DWORD code = 0;
    GetExitCodeProcess(process_.get(), &code);
    return static_cast<std::int32_t>(code);
}

void LaunchedProcess::Terminate() {
    if (HasEnded()) return;
    TerminateProcess(process_.get(), 0xDEAD);
    WaitForSingleObject(process_.get(), static_cast<DWORD>(kTimeLimit.count()));
}

}  // namespace tarn::test
