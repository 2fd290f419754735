#pragma once

#include <optional>
#include <vector>

#include "drawing/shown.h"

namespace vanzet::window {

/// A place of the drawing that a pick jumps to.
struct Snap {
  enum class Kind { kEnd, kIntersection, kCentre };
  Kind kind;
  geometry::Point point;
};

/// The places of what is shown: ends of spans, where they meet each other or the spindle's axis, and centres
/// of arcs. Of several within reach the nearest; of equal ones an end, then an intersection.
class SnapPlaces {
 public:
  SnapPlaces() = default;
  explicit SnapPlaces(const drawing::ShownLayers& shown, const std::vector<geometry::Kurve>& more = {});

  std::optional<Snap> Near(const geometry::Point& place, double reach) const;

 private:
  std::vector<geometry::Span> spans_;
};

}  // namespace vanzet::window
