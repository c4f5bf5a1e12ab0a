#include "tests/failing_calls/call_points.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <tuple>

namespace tarn::test {

namespace {

// They have no result that tells of a failure, or none that they could give.
constexpr std::string_view kCannotFail[] = {
    "AcquireSRWLockExclusive",
    "AcquireSRWLockShared",
    "CharNextW",
    "CoTaskMemFree",
    "DeleteCriticalSection",
    "DispatchMessageW",
    "ExitProcess",
    "GdiplusShutdown",
    "GetCommandLineW",
    "GetCurrentProcess",
    "GetCurrentProcessId",
    "GetCurrentThreadId",
    "GetLocalTime",
    "GetStartupInfoW",
    "GetSysColor",
    "GetSystemDefaultLCID",
    "GlobalMemoryStatus",
    "InitializeCriticalSection",
    "OleUninitialize",
    "RaiseException",
    "ReleaseSRWLockExclusive",
    "ReleaseSRWLockShared",
    "SetUnhandledExceptionFilter",
    "Sleep",
    "TranslateMessage",
    "VerSetConditionMask",
};

bool IsOfCLibrary(const std::string& library) {
    return library == "msvcrt.dll" || library.starts_with("api-ms-win-crt") ||
           library == "ucrtbase.dll";
}

using Group = std::pair<std::string, unsigned>;

std::vector<CallPoint> Choose(const std::vector<HookedCall>& calls, std::size_t atFront) {
    std::map<Group, std::vector<unsigned>> groups;
    for (const HookedCall& each : calls) {
        if (IsOfCLibrary(each.library) || !CanFail(each.function)) continue;
        groups[{each.function, each.role}].push_back(each.number);
    }
    std::vector<CallPoint> points;
    for (const auto& [group, numbers] : groups) {
        const auto add = [&, function = std::get<0>(group),
                          role = std::get<1>(group)](unsigned number) {
            points.push_back({function, role, number});
        };
        for (std::size_t i = 0; i < numbers.size() && i < atFront; ++i) add(numbers[i]);
        if (numbers.size() > atFront) add(numbers.back());
    }
    std::sort(points.begin(), points.end(), [](const CallPoint& left, const CallPoint& right) {
        return std::tie(left.function, left.role, left.number) <
               std::tie(right.function, right.role, right.number);
    });
    return points;
}

}  // namespace

std::wstring CallPoint::Wish(unsigned error) const {
    return std::wstring(function.begin(), function.end()) + L'@' + std::to_wstring(role) + L':' +
           std::to_wstring(number) + L':' + std::to_wstring(error);
}

std::string CallPoint::Text() const {
    std::string text = function + ' ' + std::to_string(number);
    if (role != 1) text += " in thread " + std::to_string(role);
    return text;
}

bool IsAllocation(const std::string& function) {
    for (const char* each : {"malloc", "calloc", "realloc", "HeapAlloc", "HeapReAlloc"}) {
        if (function == each) return true;
    }
    return false;
}

bool CanFail(const std::string& function) {
    return std::find(std::begin(kCannotFail), std::end(kCannotFail), function) ==
               std::end(kCannotFail) &&
           !IsAllocation(function) && function != "HeapFree";
}

std::vector<CallPoint> EveryCall(const std::vector<HookedCall>& calls) {
    return Choose(calls, 100);
}

std::vector<CallPoint> SomeCalls(const std::vector<HookedCall>& calls, std::size_t most) {
    const std::vector<CallPoint> all = Choose(calls, 1);
    if (all.size() <= most) return all;
    std::vector<CallPoint> some;
    for (std::size_t i = 0; i < most; ++i) some.push_back(all[i * all.size() / most]);
    return some;
}

}  // namespace tarn::test
