#pragma once

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <thread>
#include <vector>

namespace vanzet::check {

/// Calls `work(number)` for each number below `count`, on all processors; which one has which is not said.
/// Requires: the calls share nothing that changes, and throw nothing
template <class Work>
void ForEachInParallel(std::size_t count, Work work) {
  std::atomic<std::size_t> next = 0;
  const auto take = [&] {
    for (std::size_t number = next++; number < count; number = next++) work(number);
  };
  const std::size_t processors = std::max(1U, std::thread::hardware_concurrency());
  std::vector<std::jthread> others;
  for (std::size_t i = 1; i < std::min(processors, count); ++i) others.emplace_back(take);
  take();
}

}  // namespace vanzet::check
