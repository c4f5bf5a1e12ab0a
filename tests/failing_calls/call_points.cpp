#include "tests/failing_calls/call_points.h"

#include <algorithm>
#include <map>
#include <tuple>

#include "tests/import_hook/fallible_functions.h"
#include "tests/support/text.h"

namespace tarn::test {

namespace {

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
        if (!import_hook::CanFail(each.library, each.function)) continue;
        groups[{each.function, each.role}].push_back(identification.Next(each));
    }
    std::vector<std::vector<CallPoint>> points;
    for (auto& [group, all] : groups) points.push_back(std::move(all));
    return points;
}

}  // namespace

std::wstring CallPoint::FailureSpec(unsigned error, std::wstring_view next) const {
    return std::wstring(function.begin(), function.end()) + L'@' + std::to_wstring(role) + L':' +
           std::to_wstring(number) + std::wstring(next) + L':' + std::to_wstring(error) + L'\t' +
           FromUtf8(rawSubject);
}

std::string CallPoint::Text() const {
    std::string text = function;
    if (!subject.empty()) text += " [" + subject + ']';
    if (occurrence != 1) text += ' ' + std::to_string(occurrence);
    if (role != 1) text += " in thread " + std::to_string(role);
    return text;
}

std::string OccurrenceText(unsigned role, unsigned occurrence) {
    const std::string text = std::to_string(occurrence);
    return role == 1 ? text : std::to_string(role) + '/' + text;
}

std::vector<CallPoint> FailedCalls(const std::vector<HookedCall>& calls,
                                   const Normalizer& normalize) {
    std::vector<CallPoint> failed;
    Identification identification(normalize);
    for (const HookedCall& each : calls) {
        const CallPoint point = identification.Next(each);
        if (each.failed) failed.push_back(point);
    }
    return failed;
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
