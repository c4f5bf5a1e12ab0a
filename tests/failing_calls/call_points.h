#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/hook_log.h"

namespace tarn::test {

/// A call that is made to fail, identified by function, subject, thread and occurrence.
struct CallPoint {
    std::string function;
    std::string subject;      ///< that of `HookedCall`, normalized
    unsigned role = 1;        ///< thread
    unsigned occurrence = 1;  ///< among the thread's calls of the function with this subject
    // For the hook: the subject as it is, and the occurrence even in a loop.
    std::string rawSubject;
    unsigned number = 1;

    /// The value of HOOK_FAIL that fails this call with that last error, and with `kNextOfFunction`
    /// or `kNextOfAny` the next call of the thread, too.
    std::wstring FailureSpec(unsigned error, std::wstring_view next = {}) const;
    /// `CreateFileW [C:\a.txt]`, or `GetMessageW 2 in thread 2` for a later occurrence.
    std::string Text() const;
};

/// "OCCURRENCE" in the first thread, "THREAD/OCCURRENCE" in others.
std::string OccurrenceText(unsigned role, unsigned occurrence);

/// For `CallPoint::FailureSpec`: the next call of the same function fails, too, or the next call of
/// any function that can fail.
inline constexpr std::wstring_view kNextOfFunction = L">";
inline constexpr std::wstring_view kNextOfAny = L">*";

/// A loop that polls makes the same call any number of times. Calls after this occurrence count as
/// one.
inline constexpr unsigned kLaterOccurrence = 9;

/// Replaces the parts of a subject that differ between runs.
using Normalizer = std::function<std::string(const std::string& subject)>;

/// The calls of a launch that the hook has failed, in order; empty if the launch did not reach
/// them.
std::vector<CallPoint> FailedCalls(const std::vector<HookedCall>& calls,
                                   const Normalizer& normalize);

/// The calls of a launch to fail: each up to its ninth occurrence, which represents the later ones,
/// and the last one of each function in each thread.
std::vector<CallPoint> EveryCall(const std::vector<HookedCall>& calls, const Normalizer& normalize);

/// A sample of at most `most` calls, spaced evenly, with the first and the last call of each
/// function in each thread.
std::vector<CallPoint> SampleOfCalls(const std::vector<HookedCall>& calls,
                                     const Normalizer& normalize, std::size_t most);

}  // namespace tarn::test
