#pragma once

#include <cstddef>
#include <set>
#include <string>

#include "tests/support/launched_process.h"

namespace tarn::test {

/// What a process holds at the moment.
struct ProcessFigures {
    std::size_t handles = 0;
    std::size_t threads = 0;
    std::size_t privateKiB = 0;
};

ProcessFigures FiguresOf(HANDLE process);

/// What there is of everybody's processes and windows. Others of this user may start and end
/// some, so a test that expects no more than before asks again until it is so.
struct SystemFigures {
    std::size_t processes = 0;
    std::size_t windows = 0;  ///< top-level ones, visible or not
};

SystemFigures LookAround();

/// The names of all files below a folder that ends with a backslash, relative to it.
std::set<std::wstring> FilesBelow(const std::wstring& folder);

/// How often a soak test does what it does: the number in the environment variable, which
/// scripts/soak.sh sets, or the usual one.
int SoakCount(const char* variable, int usual);

}  // namespace tarn::test
