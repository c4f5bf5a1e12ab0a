#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>

#include "tools/common/console.h"

namespace tarn::tools {

/// Shows on the terminal how far an operation on files is, once it has taken longer than a second.
/// Nothing is shown where standard error is not a terminal.
class Progress {
  public:
    using Clock = std::chrono::steady_clock;

    /// `operation` is the text before the figures, `whole` the number of bytes to process. `now`
    /// replaces the clock in tests.
    Progress(const Console& console, std::string operation, std::uintmax_t whole,
             std::function<Clock::time_point()> now = Clock::now);

    /// Erases the line.
    ~Progress();

    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// Reports that another `size` bytes have been processed.
    void Add(std::uintmax_t size);

  private:
    const Console& console_;
    std::string operation_;
    std::uintmax_t whole_;
    std::uintmax_t done_ = 0;
    std::function<Clock::time_point()> now_;
    Clock::time_point next_;  // the earliest time of the next update
    bool isShown_ = false;
};

}  // namespace tarn::tools
