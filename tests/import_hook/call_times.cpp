#include "tests/import_hook/call_times.h"

#include <array>
#include <atomic>
#include <cstdio>
#include <string>

#include "base/windows.h"

namespace import_hook {

namespace {

struct CallTime {
    const HookedFunction* function;
    unsigned role;
    LARGE_INTEGER counter;
};

std::wstring file;
// More than any launch makes; later calls are not recorded.
std::array<CallTime, 4096> times;
std::atomic<std::size_t> count{0};

bool IsAboutMemory(const std::string& name) {
    return name == "malloc" || name == "free" || name.rfind("Heap", 0) == 0;
}

}  // namespace

void OpenCallTimes() {
    wchar_t path[32768] = L"";  // the maximum length of a variable's value
    GetEnvironmentVariableW(L"HOOK_TIMES", path, 32768);
    file = path;
}

void RecordCallTime(const HookedFunction& function, unsigned role) {
    if (file.empty() || IsAboutMemory(function.name)) return;
    const std::size_t place = count++;
    if (place >= times.size()) return;
    times[place] = {&function, role, {}};
    QueryPerformanceCounter(&times[place].counter);
}

void WriteCallTimes() {
    if (file.empty()) return;
    FILE* const out = _wfopen(file.c_str(), L"wb");
    if (out == nullptr) return;
    LARGE_INTEGER perSecond{};
    QueryPerformanceFrequency(&perSecond);
    const std::size_t known = count < times.size() ? count.load() : times.size();
    for (std::size_t i = 0; i < known; ++i) {
        const double seconds = static_cast<double>(times[i].counter.QuadPart) /
                               static_cast<double>(perSecond.QuadPart);
        std::fprintf(out, "%u %s %.0f\n", times[i].role, times[i].function->name.c_str(),
                     seconds * 1e9);
    }
    std::fclose(out);
}

}  // namespace import_hook
