#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace import_hook {

/// The failures that HOOK_FAIL specifies: `NAME[@ROLE]:WHICH[:ERROR[:RESULT]]`, several separated
/// by
/// ";". ROLE is the thread, by default the first. WHICH is the number of the call, from 1, or `N+`
/// for that call and all later ones; after `N>` the thread's next call of the function fails too,
/// after `N>*` its next call of any function that can fail. ERROR is the last error, by default 5;
/// RESULT is the return value, by default that of a failure of the function. A tab and a subject
/// may follow the last failure: then only calls with that subject (`CallSubject`) are counted for
/// it.
class FailurePlan {
  public:
    /// The call that fails after the specified one.
    enum class Next { None, OfTheFunction, OfAnyFunction };

    struct Failure {
        std::string name;
        unsigned role = 1;
        unsigned first = 1;
        unsigned last = 1;
        Next next = Next::None;
        std::uint32_t error = 5;
        std::optional<std::uint64_t> result;
        std::optional<std::string> subject;
        unsigned counted = 0;  ///< calls with that subject so far; a role is one thread
        bool isNext = false;   ///< whether the specified call has failed, and `next` has not
    };

    void Read(std::string_view text);

    /// A call that the program makes.
    struct Call {
        std::string_view name;
        unsigned role = 1;
        unsigned number = 1;
        std::string_view subject;
        bool canFail = true;
    };

    /// The failure of this call; null if it succeeds. Called once for each call.
    const Failure* Find(const Call& call);

  private:
    std::vector<Failure> failures_;
};

}  // namespace import_hook
