#include "tools/common/progress.h"

#include <utility>

namespace tarn::tools {
namespace {

constexpr std::uintmax_t kMebibyte = 1U << 20U;
constexpr std::chrono::milliseconds kDelay(1000);
constexpr std::chrono::milliseconds kInterval(100);

}  // namespace

Progress::Progress(const Console& console, std::string operation, std::uintmax_t whole,
                   std::function<Clock::time_point()> now)
    : console_(console),
      operation_(std::move(operation)),
      whole_(whole),
      now_(std::move(now)),
      next_(now_() + kDelay) {}

Progress::~Progress() {
    if (isShown_) console_.ShowProgress("");
}

void Progress::Add(std::uintmax_t size) {
    done_ += size;
    const Clock::time_point now = now_();
    if (now < next_) return;
    next_ = now + kInterval;
    isShown_ = true;
    console_.ShowProgress(operation_ + ": " + std::to_string(done_ / kMebibyte) + " of " +
                          std::to_string(whole_ / kMebibyte) + " MiB");
}

}  // namespace tarn::tools
