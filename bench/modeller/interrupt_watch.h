#pragma once

#include <csignal>

namespace vanzet::modeller {

/// While it lives, Ctrl-C does not end this process but is noted. Where it was ignored it stays so. The note
/// belongs to the process: one watch at a time.
class InterruptWatch {
 public:
  InterruptWatch();
  ~InterruptWatch();
  InterruptWatch(const InterruptWatch&) = delete;
  InterruptWatch& operator=(const InterruptWatch&) = delete;

  static bool Came();

 private:
  struct sigaction former_ = {};
};

}  // namespace vanzet::modeller
