#pragma once

#include <chrono>
#include <functional>
#include <ostream>
#include <string>

namespace vanzet::cli {

/// A line on a terminal that shows how far long work has come. It appears only when the work takes longer
/// than half a second, and the destructor erases it.
class ProgressLine {
 public:
  using Clock = std::function<std::chrono::steady_clock::time_point()>;

  explicit ProgressLine(std::ostream& terminal, Clock clock = std::chrono::steady_clock::now);
  ~ProgressLine();
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  /// How much of a file has been read or written: `done` is the share that is finished, from 0 to 1.
  void Report(double done);

  /// A line of any work.
  void Show(const std::string& text);

  /// Removes the line, so that another text can be printed; the next report shows it again.
  void Erase();

 private:
  std::ostream& terminal_;
  Clock clock_;
  std::chrono::steady_clock::time_point start_;
  std::string shown_;  ///< empty: nothing is shown
};

}  // namespace vanzet::cli
