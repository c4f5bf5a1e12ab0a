#include "tests/import_hook/local_clock.h"

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <vector>

namespace import_hook {

namespace {

std::vector<SYSTEMTIME> times;
std::atomic<std::size_t> calls{0};

}  // namespace

void ReadLocalClock() {
    char text[32768] = "";  // the maximum length of a variable's value
    GetEnvironmentVariableA("HOOK_CLOCK", text, sizeof text);
    int size = 0;
    unsigned parts[7];
    for (const char* rest = text;
         std::sscanf(rest, " %u-%u-%uT%u:%u:%u.%u%n", &parts[0], &parts[1], &parts[2], &parts[3],
                     &parts[4], &parts[5], &parts[6], &size) == 7;
         rest += size) {
        SYSTEMTIME time{};
        WORD* const fields[] = {&time.wYear,   &time.wMonth,  &time.wDay,         &time.wHour,
                                &time.wMinute, &time.wSecond, &time.wMilliseconds};
        for (std::size_t i = 0; i < 7; ++i) *fields[i] = static_cast<WORD>(parts[i]);
        times.push_back(time);
    }
}

void WINAPI GetPlannedLocalTime(SYSTEMTIME* time) {
    if (times.empty()) return GetLocalTime(time);
    *time = times[std::min(calls++, times.size() - 1)];
}

}  // namespace import_hook
