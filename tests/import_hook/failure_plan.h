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
/// for that call and all later ones. ERROR is the last error, by default 5; RESULT is the return
/// value, by default that of a failure of the function. A tab and a subject may follow the last
/// failure: then only calls with that subject (`CallSubject`) are counted for it.
class FailurePlan {
  public:
    struct Failure {
        std::string name;
        unsigned role = 1;
        unsigned first = 1;
        unsigned last = 1;
        std::uint32_t error = 5;
        std::optional<std::uint64_t> result;
        std::optional<std::string> subject;
        unsigned counted = 0;  ///< calls with that subject so far; a role is one thread
    };

    void Read(std::string_view text);

    /// The failure of this call; null if it succeeds. Called once for each call.
    const Failure* Find(std::string_view name, unsigned role, unsigned number,
                        std::string_view subject);

  private:
    std::vector<Failure> failures_;
};

}  // namespace import_hook
