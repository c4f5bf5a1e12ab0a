#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace import_hook {

/// What HOOK_FAIL asks for: `NAME:WHICH[:ERROR[:RESULT]]`, several separated by ";". WHICH is the
/// number of the call, from 1, `N+` for that one and all after it; `@ROLE` behind NAME means a
/// thread other than the first. ERROR is the last error (5 without one), RESULT what the call
/// gives (without it, what a failure of that function is).
class FailurePlan {
  public:
    struct Failure {
        std::string name;
        unsigned role = 1;
        unsigned first = 1;
        unsigned last = 1;
        std::uint32_t error = 5;
        std::optional<std::uint64_t> result;
    };

    void Read(std::string_view text);

    /// The failure that this call is to have; null when it is to succeed.
    const Failure* Find(std::string_view name, unsigned role, unsigned number) const;

  private:
    std::vector<Failure> failures_;
};

}  // namespace import_hook
