#pragma once

#include <cstddef>

#include "base/result.h"

namespace vanzet::contour {

/// How near arcs have to be to the curves that they replace, and how many there may be in a drawing.
class ArcBudget {
 public:
  /// Far more than drawings that people make need.
  static constexpr std::size_t kMost = 200'000;

  /// `tolerance` is above 0, in millimetres.
  explicit ArcBudget(double tolerance, std::size_t most = kMost) : tolerance_(tolerance), most_(most) {}

  double tolerance() const { return tolerance_; }

  /// How many are used.
  std::size_t used() const { return used_; }

  /// Fails, without a place, when there would be too many.
  Result<void> Use(std::size_t arcs);

 private:
  double tolerance_;
  std::size_t most_, used_ = 0;
};

}  // namespace vanzet::contour
