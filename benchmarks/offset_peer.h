#pragma once

#include "geometry/kurveex.h"

namespace vanzet::benchmarks {

/// A contour as Open CASCADE holds it, and its planar offset there.
class PeerContour {
 public:
  explicit PeerContour(const geometry::KurveEx& k);
  ~PeerContour();
  PeerContour(const PeerContour&) = delete;
  PeerContour& operator=(const PeerContour&) = delete;

  /// Whether there is one; outwards for a positive distance.
  bool Offset(double distance) const;

 private:
  struct Wire;
  std::unique_ptr<Wire> wire_;
};

}  // namespace vanzet::benchmarks
