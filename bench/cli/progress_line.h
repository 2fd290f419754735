#pragma once

#include <chrono>
#include <functional>
#include <ostream>

#include "modeller/exchange.h"

namespace vanzet::cli {

/// A line on a terminal that tells how far a file is read or written, for work that a person would wait for.
/// It is wiped when it goes.
class ProgressLine {
 public:
  using Clock = std::function<std::chrono::steady_clock::time_point()>;

  explicit ProgressLine(std::ostream& terminal, Clock clock = std::chrono::steady_clock::now);
  ~ProgressLine();
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  /// `done` is from 0 to 1.
  void Tell(double done);

 private:
  std::ostream& terminal_;
  Clock clock_;
  std::chrono::steady_clock::time_point begun_;
  int told_ = -1;  ///< per cent; below 0: nothing yet
};

/// The exchange program, whose progress is told where standard error is a terminal.
modeller::Exchange ToldExchange();

}  // namespace vanzet::cli
