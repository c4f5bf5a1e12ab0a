#include "tests/support/hook_log.h"

#include <sstream>

#include "tests/support/paths.h"
#include "tests/support/text.h"

namespace tarn::test {

std::vector<HookedCall> ReadHookLog(const std::wstring& file) {
    std::vector<HookedCall> calls;
    const std::string text = ReadFileBytes(file);
    for (const std::string& line : SplitLines(text.substr(0, text.rfind('\n') + 1))) {
        const std::size_t tab = line.find('\t');
        std::istringstream words(line.substr(0, tab));
        HookedCall call;
        std::string name;
        std::string failed;
        if (!(words >> call.role >> name >> call.number >> std::hex >> call.place)) continue;
        words >> failed;
        call.failed = failed == "failed";
        const std::size_t mark = name.find('!');
        call.library = name.substr(0, mark);
        call.function = name.substr(mark + 1);
        if (tab != std::string::npos) call.subject = line.substr(tab + 1);
        calls.push_back(call);
    }
    return calls;
}

std::wstring HookLogFile(const InstalledApplication& app) {
    // Not in the application's folder, which class path patterns enumerate.
    return app.LogFile() + L".calls";
}

std::unique_ptr<LaunchedProcess> StartHooked(const InstalledApplication& app,
                                             std::wstring_view failures,
                                             std::wstring_view argumentText) {
    std::wstring commandLine = L'"' + app.Executable() + L'"';
    if (!argumentText.empty()) commandLine += L' ' + std::wstring(argumentText);
    Start start = app.StartWith(commandLine);
    start.library = GetPaths().importHook;
    start.environment[L"HOOK_LOG"] = HookLogFile(app);
    start.environment[L"HOOK_FAIL"] = std::wstring(failures);
    return std::make_unique<LaunchedProcess>(start);
}

}  // namespace tarn::test
