#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <map>
#include <string>

namespace vanzet::test {

/// The solids of the host in memory, and what a person picks of them.
struct FakeBodies {
  struct Body {
    std::string name;
    bool isMesh = false;
    std::array<double, 6> extents = {};  ///< minimum X, Y, Z, maximum X, Y, Z, in metres
  };
  std::map<std::int32_t, Body> byNumber;

  /// The bodies that are picked, in order; without one, or with a body of 0, the pick is broken off.
  std::deque<std::int32_t> picks;

  /// The bodies behind objects that were picked; an object's number is 100 and its place in the order.
  std::map<std::int32_t, std::int32_t> byObject;
};

}  // namespace vanzet::test
