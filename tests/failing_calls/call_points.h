#pragma once

#include <string>
#include <vector>

#include "tests/support/hook_log.h"

namespace tarn::test {

/// One call that is made to fail.
struct CallPoint {
    std::string function;
    unsigned role = 1;
    unsigned number = 1;

    /// As HOOK_FAIL has it.
    std::wstring Wish(unsigned error) const;
    /// For a reader: "CreateFileW 2", "GetMessageW 1 in thread 2".
    std::string Text() const;
};

/// Whether the function can fail at all; memory has a test of its own.
bool CanFail(const std::string& function);

/// Whether the function is one that a program gets its memory from.
bool IsAllocation(const std::string& function);

/// The calls to fail, of all those of a launch. Of very many to one function in one thread, the
/// last stands for those after the first hundred.
std::vector<CallPoint> EveryCall(const std::vector<HookedCall>& calls);

/// A sample of them: of each function's first call in each thread, and its last one, at most that
/// many, evenly taken.
std::vector<CallPoint> SomeCalls(const std::vector<HookedCall>& calls, std::size_t most);

}  // namespace tarn::test
