#pragma once

#include <algorithm>
#include <chrono>
#include <thread>

namespace vanzet::vdm {

/// The pauses between attempts at the same thing, each twice as long as the one before, until a time is over.
class PostgresPatience {
 public:
  using Milliseconds = std::chrono::milliseconds;

  explicit PostgresPatience(Milliseconds longest, Milliseconds longestPause = Milliseconds::max())
      : end_(Clock::now() + longest), longestPause_(longestPause) {}

  /// Pauses before the next attempt; false, at once, when the time is over.
  bool Pause() {
    if (Clock::now() >= end_) return false;
    std::this_thread::sleep_for(pause_);
    pause_ = std::min(2 * pause_, longestPause_);
    return true;
  }

 private:
  using Clock = std::chrono::steady_clock;

  Clock::time_point end_;
  Milliseconds longestPause_, pause_{5};
};

}  // namespace vanzet::vdm
