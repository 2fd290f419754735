#pragma once

#include <chrono>
#include <functional>
#include <ostream>

namespace vanzet::cli {

/// A line on a terminal that shows how much of a file has been read or written. It appears only when the work
/// takes longer than half a second, and the destructor erases it.
class ProgressLine {
 public:
  using Clock = std::function<std::chrono::steady_clock::time_point()>;

  explicit ProgressLine(std::ostream& terminal, Clock clock = std::chrono::steady_clock::now);
  ~ProgressLine();
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  /// `done` is the share that is finished, from 0 to 1.
  void Report(double done);

 private:
  std::ostream& terminal_;
  Clock clock_;
  std::chrono::steady_clock::time_point start_;
  int percent_ = -1;  ///< as shown; below 0: nothing is shown
};

}  // namespace vanzet::cli
