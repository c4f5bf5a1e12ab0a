#include "tests/failing_calls/call_points.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <tuple>

#include "tests/support/text.h"

namespace tarn::test {

namespace {

// Their results never report a failure.
constexpr std::string_view kCannotFail[] = {
    "AcquireSRWLockExclusive",
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
    "SetUnhandledExceptionFilter",
    "Sleep",
    "TranslateMessage",
    "VerSetConditionMask",
};

bool IsOfCLibrary(const std::string& library) {
    return library == "msvcrt.dll" || library.starts_with("api-ms-win-crt") ||
           library == "ucrtbase.dll";
}

/// Identifies the calls of a launch, in order.
class Identification {
  public:
    explicit Identification(const Normalizer& normalize) : normalize_(normalize) {}

    CallPoint Next(const HookedCall& call) {
        CallPoint point{call.function, normalize_(call.subject), call.role, 1, call.subject};
        point.number = ++occurrences_[{point.function, point.rawSubject, point.role}];
        point.occurrence = std::min(point.number, kLaterOccurrence);
        return point;
    }

  private:
    const Normalizer& normalize_;
    std::map<std::tuple<std::string, std::string, unsigned>, unsigned> occurrences_;
};

/// The calls of each function in each thread, in the order of the calls.
std::vector<std::vector<CallPoint>> Groups(const std::vector<HookedCall>& calls,
                                           const Normalizer& normalize) {
    std::map<std::pair<std::string, unsigned>, std::vector<CallPoint>> groups;
    Identification identification(normalize);
    for (const HookedCall& each : calls) {
        if (IsOfCLibrary(each.library) || !CanFail(each.function)) continue;
        groups[{each.function, each.role}].push_back(identification.Next(each));
    }
    std::vector<std::vector<CallPoint>> points;
    for (auto& [group, all] : groups) points.push_back(std::move(all));
    return points;
}

}  // namespace

std::wstring CallPoint::FailureSpec(unsigned error) const {
    return std::wstring(function.begin(), function.end()) + L'@' + std::to_wstring(role) + L':' +
           std::to_wstring(number) + L':' + std::to_wstring(error) + L'\t' + FromUtf8(rawSubject);
}

std::string CallPoint::Text() const {
    std::string text = function;
    if (!subject.empty()) text += " [" + subject + ']';
    if (occurrence != 1) text += ' ' + std::to_string(occurrence);
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

std::optional<CallPoint> FailedCall(const std::vector<HookedCall>& calls,
                                    const Normalizer& normalize) {
    Identification identification(normalize);
    for (const HookedCall& each : calls) {
        const CallPoint point = identification.Next(each);
        if (each.failed) return point;
    }
    return std::nullopt;
}

std::vector<CallPoint> EveryCall(const std::vector<HookedCall>& calls,
                                 const Normalizer& normalize) {
    std::vector<CallPoint> points;
    for (const std::vector<CallPoint>& group : Groups(calls, normalize)) {
        for (const CallPoint& each : group) {
            const bool isLast = &each == &group.back();
            if (each.number <= kLaterOccurrence || isLast) points.push_back(each);
        }
    }
    return points;
}

std::vector<CallPoint> SampleOfCalls(const std::vector<HookedCall>& calls,
                                     const Normalizer& normalize, std::size_t most) {
    std::vector<CallPoint> ends;
    for (const std::vector<CallPoint>& group : Groups(calls, normalize)) {
        ends.push_back(group.front());
        if (group.size() > 1) ends.push_back(group.back());
    }
    if (ends.size() <= most) return ends;
    std::vector<CallPoint> some;
    for (std::size_t i = 0; i < most; ++i) some.push_back(ends[i * ends.size() / most]);
    return some;
}

}  // namespace tarn::test
