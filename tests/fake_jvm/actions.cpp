// The actions of the scripted application: one step for each `PLACE = ACTION` line.

#include <cstdlib>

#include "tests/fake_jvm/call_log.h"
#include "tests/fake_jvm/vm.h"

// Last, because it needs the types of windows.h.
#include <tlhelp32.h>

namespace fake_jvm {

namespace {

std::wstring Wide(std::string_view utf8) {
    const std::u16string text = FromUtf8(utf8);
    return {text.begin(), text.end()};
}

std::string Narrow(const wchar_t* text) {
    const std::wstring wide = text;
    return QuoteText(std::u16string(wide.begin(), wide.end()));
}

void LogModules() {
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPMODULE, GetCurrentProcessId());
    MODULEENTRY32W entry{};
    entry.dwSize = sizeof entry;
    for (BOOL more = Module32FirstW(snapshot, &entry); more;
         more = Module32NextW(snapshot, &entry)) {
        Log("module " + Narrow(entry.szModule));
    }
    CloseHandle(snapshot);
}

BOOL CALLBACK LogWindow(HWND window, LPARAM) {
    DWORD process = 0;
    const DWORD thread = GetWindowThreadProcessId(window, &process);
    if (process != GetCurrentProcessId()) return TRUE;
    wchar_t className[256] = L"";
    GetClassNameW(window, className, 256);
    wchar_t title[256] = L"";
    InternalGetWindowText(window, title, 256);
    Log("window class=" + Narrow(className) + " title=" + Narrow(title) +
        (IsWindowVisible(window) ? " visible" : " hidden") + " thread=" + std::to_string(thread));
    return TRUE;
}

HANDLE EventNamed(const std::string& name) {
    return CreateEventW(nullptr, TRUE, FALSE, Wide(name).c_str());
}

/// Starts a program as a Java application does, and waits for its end.
void RunProgram(const std::wstring& program) {
    STARTUPINFOW how{};
    how.cb = sizeof how;
    PROCESS_INFORMATION made{};
    if (!CreateProcessW(program.c_str(), nullptr, nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &how, &made)) {
        Log("VIOLATION the script names a program that cannot be started");
        return;
    }
    WaitForSingleObject(made.hProcess, INFINITE);
    CloseHandle(made.hThread);
    CloseHandle(made.hProcess);
}

struct LaterExit {
    HANDLE event;
    jint code;
};

DWORD WINAPI ExitLater(void* parameter) {
    const auto* const later = static_cast<const LaterExit*>(parameter);
    WaitForSingleObject(later->event, INFINITE);
    ExitProcessLikeJava(later->code);
}

}  // namespace

jint RunActions(Environment* environment, std::string_view place) {
    jint result = 0;
    for (const std::string& action : Script::Get().Values(place)) {
        const std::size_t space = action.find(' ');
        const std::string verb = action.substr(0, space);
        const std::string rest = space == std::string::npos ? "" : action.substr(space + 1);
        const jint number = std::atoi(rest.c_str());
        VirtualMachine& machine = VirtualMachine::Get();
        if (verb == "return") {
            result = number;
        } else if (verb == "throw") {
            const std::size_t colon = rest.find(": ");
            Throw(environment, rest.empty() ? "java/lang/RuntimeException" : rest.substr(0, colon),
                  colon == std::string::npos ? "" : rest.substr(colon + 2));
        } else if (verb == "exit") {
            ExitProcessLikeJava(number);
        } else if (verb == "exit_process") {
            ExitProcess(static_cast<UINT>(number));
        } else if (verb == "exit_thread") {
            ExitThread(static_cast<DWORD>(number));
        } else if (verb == "terminate_thread") {
            TerminateThread(GetCurrentThread(), static_cast<DWORD>(number));
        } else if (verb == "run") {
            RunProgram(Wide(rest));
        } else if (verb == "call_exit_hook") {
            machine.exitHook(number);
            Log("exit hook returned");
        } else if (verb == "call_abort_hook") {
            machine.abortHook();
            Log("abort hook returned");
        } else if (verb == "set_event") {
            SetEvent(EventNamed(rest));
        } else if (verb == "wait_event") {
            WaitForSingleObject(EventNamed(rest), INFINITE);
        } else if (verb == "exit_on_event") {
            // On a thread of the application that outlives main: `EVENT CODE`.
            const std::size_t split = rest.find(' ');
            auto* const later = new LaterExit{EventNamed(rest.substr(0, split)),
                                              std::atoi(rest.substr(split + 1).c_str())};
            CloseHandle(CreateThread(nullptr, 0, ExitLater, later, 0, nullptr));
        } else if (verb == "print") {
            Print(false, Unescape(rest));
        } else if (verb == "print_error") {
            Print(true, Unescape(rest));
        } else if (verb == "log") {
            Log(rest);
        } else if (verb == "log_modules") {
            LogModules();
        } else if (verb == "log_windows") {
            EnumWindows(LogWindow, 0);
        } else if (verb == "log_error_mode") {
            LogErrorMode(place);
        } else if (verb == "log_environment") {
            LogVariable(Wide(rest).c_str(), rest.c_str());
        } else if (verb == "log_local_references") {
            Log("local references " + std::to_string(environment->localReferences));
        } else {
            Log("VIOLATION the script has an unknown action: " + action);
        }
    }
    return result;
}

}  // namespace fake_jvm
