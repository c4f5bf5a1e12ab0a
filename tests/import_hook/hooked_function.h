#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <string>

namespace import_hook {

/// Threads are counted separately, so that the n-th call is the same one in every run: 1 is the
/// entry thread, the others are numbered in the order of their creation.
inline constexpr unsigned kMostRoles = 16;

/// A function that the program imports or looks up by name.
struct HookedFunction {
    std::string library;  ///< the name in the import table, or the file name
    std::string name;
    void* target = nullptr;  ///< the function, or its replacement
    std::array<std::atomic<unsigned>, kMostRoles> calls{};

    bool isLogged = true;
    bool canFail = true;  ///< `CanFail`
};

}  // namespace import_hook
