#pragma once

#include <cstddef>
#include <set>
#include <string>

#include "tests/support/launched_process.h"

namespace tarn::test {

/// The resources of a process.
struct ProcessFigures {
    std::size_t handles = 0;  ///< open ones
    std::size_t threads = 0;
    std::size_t privateKiB = 0;
};

ProcessFigures FiguresOf(HANDLE process);

/// The processes and windows of the session. Other programs start and end some, so a test that
/// expects no more than before repeats the query until the numbers agree.
struct SystemFigures {
    std::size_t processes = 0;
    std::size_t windows = 0;  ///< top-level ones, visible or not
};

SystemFigures SystemFiguresNow();

/// The number of names in the session's tables of global atoms and of registered messages, formats
/// and classes, which no process's end empties. There is room for 16,384 in each.
std::size_t CountAtoms();

/// The names of all files below a folder, which ends in a backslash, relative to it.
std::set<std::wstring> FilesBelow(const std::wstring& folder);

/// The number of repetitions of a soak test: the value of the environment variable, which
/// scripts/soak.sh sets, or the default.
int SoakCount(const char* variable, int usual);

}  // namespace tarn::test
