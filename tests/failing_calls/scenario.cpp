#include "tests/failing_calls/scenario.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>

#include "tests/support/paths.h"
#include "tests/support/text.h"
#include "tests/support/windows_of_process.h"

namespace tarn::test {

namespace {

constexpr std::chrono::seconds kHang{60};
// The control id of the text of a message box.
constexpr int kMessageText = 0xFFFF;

std::string Join(const std::vector<std::string>& parts) {
    std::string text;
    for (const std::string& each : parts) text += (text.empty() ? "" : " ") + each;
    return text;
}

std::string ExitText(DWORD code) {
    switch (code) {
        case 0x80004005:
            return "0x80004005 (out of memory)";
        default:
            break;
    }
    if (code < 0xC0000000 || code == 0xFFFFFFFF) {
        return std::to_string(static_cast<std::int32_t>(code));
    }
    char text[32];
    std::snprintf(text, sizeof text, "CRASH 0x%08lX", code);
    return text;
}

std::wstring Variable(const wchar_t* name) {
    std::wstring value(GetEnvironmentVariableW(name, nullptr, 0), L'\0');
    value.resize(GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
    return value;
}

HWND MessageTextOf(HWND window) {
    for (HWND each : Children(window)) {
        if ((GetDlgCtrlID(each) & 0xFFFF) == kMessageText) return each;
    }
    return nullptr;
}

}  // namespace

std::vector<NamedScenario> AllScenarios() {
    std::vector<NamedScenario> all;
    for (const auto& some :
         {PlainScenarios(), SplashScenarios(), DialogScenarios(), InstanceScenarios()}) {
        all.insert(all.end(), some.begin(), some.end());
    }
    return all;
}

Scenario::Scenario() : settings(app.StandardSettings()) {
    app.AddRuntime();
    // The longer path first: the application's folder is below the working directory. The names of
    // the shared objects contain the program's path with underscores.
    std::wstring inNames = app.folder();
    std::replace(inNames.begin(), inNames.end(), L'\\', L'_');
    replacements = {{Variable(L"Path"), L"PATH"},
                    {app.folder(), L"...\\"},
                    {inNames, L"..._"},
                    {app.directory, L"TEST\\"},
                    {app.directory.substr(0, app.directory.size() - 1), L"TEST"},
                    {GetPaths().pictures, L"PICTURES"},
                    {GetPaths().programs, L"PROGRAMS"}};
}

Scenario::~Scenario() = default;

std::unique_ptr<LaunchedProcess> Scenario::Launch(const std::wstring& failures) {
    return StartHooked(app, failures, argumentText);
}

void Scenario::Answer(const LaunchedProcess&, HWND dialog, const std::wstring&) {
    PressButton(dialog, IDCANCEL);
}

Facts Scenario::Run(const std::wstring& failures) {
    for (const std::wstring& file :
         {app.LogFile(), HookLogFile(app), app.OutputFile(), app.ErrorFile()}) {
        EXPECT_TRUE(WaitUntil([&] {
            return DeleteFileW(file.c_str()) || GetLastError() == ERROR_FILE_NOT_FOUND;
        })) << ToUtf8(file);
    }
    RemoveFolder(app.AppDataFolder());
    shown_.clear();
    answered_.clear();
    app.WriteSettings(settings);
    Prepare();
    const auto process = Launch(failures);
    const std::string exit = WaitForEnd(*process);
    Facts facts;
    facts.emplace_back("shows", shown_.empty() ? "nothing" : Join(shown_));
    facts.emplace_back("main", MainCall());
    facts.emplace_back("JVM options", FirstOptions());
    facts.emplace_back("Path", app.Log().After("environment Path="));
    facts.emplace_back("TARN_JVM_PATH", app.Log().After("environment TARN_JVM_PATH="));
    facts.emplace_back("TARN_JVM_HOME", app.Log().After("environment TARN_JVM_HOME="));
    facts.emplace_back("JNI", Join(app.Log().Violations()));
    AddFacts(facts);
    facts.emplace_back("exit code", exit);
    return facts;
}

std::string Scenario::MainCall() const {
    std::string arguments =
        app.Log().After("CallStaticVoidMethod(com/example/Main.main([Ljava/lang/String;)V, ");
    if (arguments.empty()) return "does not run";
    arguments.pop_back();  // the bracket at the end of the call
    return "runs with " + arguments;
}

std::string Scenario::FirstOptions() const {
    std::string options;
    for (const std::string& each : app.Log().Texts()) {
        if (each.starts_with("option 0 ") && !options.empty()) break;
        if (each.starts_with("option ")) options += each.substr(each.find(' ', 7)) + '\n';
    }
    return options;
}

std::string Scenario::WaitForEnd(const LaunchedProcess& process) {
    const bool ended = WaitUntil(
        [&] {
            if (process.HasEnded()) return true;
            AnswerWindows(process);
            Poll(process);
            return false;
        },
        kHang);
    if (!ended) return "HANG";
    DWORD code = 0;
    GetExitCodeProcess(process.handle(), &code);
    return ExitText(code);
}

void Scenario::AnswerWindows(const LaunchedProcess& process) {
    const auto now = std::chrono::steady_clock::now();
    for (const HWND window : WindowsOf(process.id(), L"#32770")) {
        if (!IsWindowVisible(window)) continue;
        const auto before = std::find_if(answered_.begin(), answered_.end(),
                                         [&](const auto& each) { return each.first == window; });
        const bool isNew = before == answered_.end();
        // A window that still exists may have missed the answer.
        if (!isNew && now - before->second < std::chrono::seconds(1)) continue;
        if (!isNew) answered_.erase(before);
        answered_.emplace_back(window, now);
        const std::wstring title = WindowText(window);
        // The launcher's message boxes have Windows' default caption.
        const HWND text = title == L"Error" ? MessageTextOf(window) : nullptr;
        if (isNew) {
            const std::wstring shown = text != nullptr ? WindowText(text) : title;
            shown_.push_back('"' + Normalized(ToUtf8(shown)) + '"');
        }
        if (text != nullptr) {
            PressButton(window, IDOK);
        } else {
            Answer(process, window, title);
        }
    }
}

std::string Scenario::Normalized(const std::string& text) const {
    std::wstring wide = FromUtf8(text);
    for (const auto& [from, to] : replacements) {
        for (std::size_t at; (at = wide.find(from)) != std::wstring::npos;) {
            wide.replace(at, from.size(), to);
        }
    }
    std::replace(wide.begin(), wide.end(), L'\n', L' ');
    while (!wide.empty() && wide.back() == L' ') wide.pop_back();
    return ToUtf8(wide);
}

}  // namespace tarn::test
