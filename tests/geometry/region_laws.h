#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "geometry/region_probe.h"

namespace geometry::testing {

/// Tests with regions drawn by lot. VANZET_REGION_LAWS says how many, otherwise it is a sample of them.
class RegionLaws : public ::testing::Test {
 protected:
  static constexpr int kFew = 400;
  /// Points that are nearer to a boundary than this are not asked for.
  static constexpr double kClose = 1e-6;

  /// Calls `test(random)` for one region out of `every`, until it fails.
  template <class Test>
  void ForEach(Test test, int every = 1) {
    const char* wanted = std::getenv("VANZET_REGION_LAWS");
    const int count = wanted ? std::atoi(wanted) : kFew;
    for (int seed = 0; seed * every < count && !HasFailure(); ++seed) {
      SCOPED_TRACE("seed " + std::to_string(seed));
      Random random(static_cast<std::uint32_t>(seed));
      isLattice_ = seed % 2 == 1;
      test(random);
    }
  }
  /// Half of the contours have their corners on a lattice, where most coincidences are exact.
  bool IsLattice() const { return isLattice_; }
  KurveEx DrawContour(Random& random) const {
    return isLattice_ ? LatticeContour(3 + random.Below(12), 2 + random.Below(9), random)
                      : Scribble(4 + random.Below(12), random);
  }
  double DrawDistance(Random& random) const {
    constexpr double kDistances[] = {0.25, 0.5, 0.7071067811865475, 1, 1.5, 2, 3.3};
    const double distance = kDistances[random.Below(7)] * (random.Below(2) == 0 ? -1 : 1);
    return isLattice_ ? distance : distance * random.Between(0.3, 2);
  }
  static Point DrawPoint(const Region& region, double margin, Random& random) {
    Box box = BoxOf(region);
    box.Grow(margin);
    return {random.Between(box.min.x, box.max.x), random.Between(box.min.y, box.max.y)};
  }

 private:
  bool isLattice_ = false;
  UnitsGuard millimetres_{0};
};

}  // namespace geometry::testing
