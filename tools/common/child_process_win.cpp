#include <array>
#include <memory>

#include "base/windows.h"
#include "tools/common/child_process.h"
#include "tools/common/failure.h"
#include "tools/common/text_encoding.h"

namespace tarn::tools {
namespace {

struct HandleCloser {
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using OwnedHandle = std::unique_ptr<void, HandleCloser>;

// The quoting that `CommandLineToArgvW` and the C runtime undo. Some programs, such as cmd.exe, do
// not recognize their options in quotes, so it is used only where it is required.
std::wstring Quoted(const std::wstring& argument) {
    if (!argument.empty() && argument.find_first_of(L" \t\"") == std::wstring::npos)
        return argument;
    std::wstring quoted = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t character : argument) {
        if (character == L'"') quoted.append(backslashes + 1, L'\\');
        backslashes = character == L'\\' ? backslashes + 1 : 0;
        quoted += character;
    }
    quoted.append(backslashes, L'\\');
    return quoted + L'"';
}

std::string ReadToEnd(HANDLE pipe) {
    std::string text;
    std::array<char, 4096> part;
    DWORD size = 0;
    while (ReadFile(pipe, part.data(), static_cast<DWORD>(part.size()), &size, nullptr) &&
           size != 0) {
        text.append(part.data(), size);
    }
    return text;
}

SECURITY_ATTRIBUTES Inherited() {
    return {sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
}

// The device NUL, for a child's input or output.
OwnedHandle OpenNothing(DWORD access) {
    SECURITY_ATTRIBUTES inherited = Inherited();
    const HANDLE nothing = CreateFileW(L"NUL", access, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                       &inherited, OPEN_EXISTING, 0, nullptr);
    if (nothing == INVALID_HANDLE_VALUE) throw Failure("the device NUL cannot be opened");
    return OwnedHandle(nothing);
}

// Returns the process; null when there is no such program. The command line's first word is not
// searched.
OwnedHandle Start(const std::filesystem::path& program, std::wstring commandLine,
                  const std::wstring& workingFolder, HANDLE output) {
    const std::filesystem::path found = FindProgram(program);
    if (found.empty()) return {};
    const OwnedHandle input = OpenNothing(GENERIC_READ);
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = input.get();
    startup.hStdOutput = output;
    startup.hStdError = output;
    PROCESS_INFORMATION process = {};
    if (!CreateProcessW(found.c_str(), commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr,
                        workingFolder.empty() ? nullptr : workingFolder.c_str(), &startup,
                        &process)) {
        return {};
    }
    CloseHandle(process.hThread);
    return OwnedHandle(process.hProcess);
}

void TakeExitCode(const OwnedHandle& process, ProcessResult& result) {
    WaitForSingleObject(process.get(), INFINITE);
    DWORD code = 0;
    if (GetExitCodeProcess(process.get(), &code)) result.exitCode = static_cast<int>(code);
}

ProcessResult RunCommandLine(const std::filesystem::path& program, std::wstring commandLine,
                             const std::wstring& workingFolder) {
    SECURITY_ATTRIBUTES inherited = Inherited();
    HANDLE reading = nullptr;
    HANDLE writing = nullptr;
    if (!CreatePipe(&reading, &writing, &inherited, 0)) throw Failure("no pipe can be created");
    const OwnedHandle output(reading);
    OwnedHandle childOutput(writing);
    SetHandleInformation(reading, HANDLE_FLAG_INHERIT, 0);
    ProcessResult result;
    const OwnedHandle process =
        Start(program, std::move(commandLine), workingFolder, childOutput.get());
    childOutput.reset();
    if (!process) return result;
    result.isStarted = true;
    result.output = ReadToEnd(output.get());
    TakeExitCode(process, result);
    return result;
}

std::filesystem::path CommandInterpreter() {
    std::wstring folder(GetSystemDirectoryW(nullptr, 0), L'\0');
    folder.resize(GetSystemDirectoryW(folder.data(), static_cast<UINT>(folder.size())));
    return std::filesystem::path(folder) / L"cmd.exe";
}

std::wstring CommandLineOf(const std::filesystem::path& program,
                           const std::vector<std::string>& arguments) {
    std::wstring commandLine = Quoted(program.wstring());
    for (const std::string& argument : arguments) commandLine += L' ' + Quoted(WideOf(argument));
    return commandLine;
}

}  // namespace

ProcessResult RunProgram(const std::filesystem::path& program,
                         const std::vector<std::string>& arguments,
                         const std::filesystem::path& workingFolder) {
    return RunCommandLine(program, CommandLineOf(program, arguments), workingFolder.wstring());
}

ProcessResult RunSilently(const std::filesystem::path& program,
                          const std::vector<std::string>& arguments,
                          const std::filesystem::path& workingFolder,
                          std::chrono::milliseconds timeLimit) {
    const OwnedHandle nowhere = OpenNothing(GENERIC_WRITE);
    ProcessResult result;
    const OwnedHandle process =
        Start(program, CommandLineOf(program, arguments), workingFolder.wstring(), nowhere.get());
    if (!process) return result;
    result.isStarted = true;
    const auto limit = static_cast<DWORD>(timeLimit.count());
    result.isTimedOut = WaitForSingleObject(process.get(), limit) == WAIT_TIMEOUT;
    if (result.isTimedOut) TerminateProcess(process.get(), 1);
    TakeExitCode(process, result);
    return result;
}

ProcessResult RunShellCommand(const std::string& command, const std::filesystem::path& file) {
    // With /s, cmd.exe removes the outer quotes and takes the rest as it is.
    return RunCommandLine(
        CommandInterpreter(),
        L"cmd.exe /d /s /c \"" + WideOf(command) + L" \"" + file.wstring() + L"\"\"", {});
}

}  // namespace tarn::tools
