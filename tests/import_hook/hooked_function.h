#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <string>

namespace import_hook {

/// Threads are counted apart, so that the n-th call is the same one in every run: 1 is the entry
/// thread, the others are numbered in the order in which the program made them.
inline constexpr unsigned kMostRoles = 16;

/// A function that the program imports or looked up by name.
struct HookedFunction {
    std::string library;  ///< as the import table or the file names it
    std::string name;
    void* target = nullptr;  ///< the function itself, or what stands in for it
    std::array<std::atomic<unsigned>, kMostRoles> calls{};

    bool isLogged = true;
};

}  // namespace import_hook
