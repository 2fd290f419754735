#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "geometry/point.h"

namespace vanzet::scene {

/// Standard views. In the front view x is to the right and y up, as in the drawing.
enum class View { kIso, kFront, kBack, kTop, kBottom, kLeft, kRight };

/// The words of the views, "iso" first, and the view of a word.
std::span<const std::string_view> ViewWords();
std::optional<View> ViewNamed(std::string_view word);

/// The position of the eye and the scale of the picture. Pixels count from the upper left corner.
struct Look {
  geometry::Vector3d toward{0, 0, 1}, up{0, 1, 0};  ///< unit vectors, to the eye and up, at right angles
  geometry::Point3d middle{0, 0, 0};                ///< turns are about this point
  double reach = 1;  ///< the distance of the farthest point from the middle, in millimetres
  bool isPerspective = false;
  double scale = 1;               ///< pixels a millimetre, at the middle
  double shiftX = 0, shiftY = 0;  ///< the place of the middle in the picture
};

/// Points that a picture must show: a list, or what calls a visitor with each of them, so that a large
/// surface needs no copy. What they are made of must live as long as they are used.
class PointSource {
 public:
  using Visitor = std::function<void(const geometry::Point3d&)>;

  // NOLINTNEXTLINE(google-explicit-constructor): a list is meant where points are wanted
  PointSource(const std::vector<geometry::Point3d>& points)
      : visitAll_([&points](const Visitor& visit) {
          for (const geometry::Point3d& point : points) visit(point);
        }) {}
  explicit PointSource(std::function<void(const Visitor&)> visitAll) : visitAll_(std::move(visitAll)) {}

  void VisitAll(const Visitor& visit) const { visitAll_(visit); }

 private:
  std::function<void(const Visitor&)> visitAll_;
};

/// Looks from one of the standard sides at points, so that all of them fit into the picture.
/// Requires: a size above 0
Look LookFrom(View view, bool isPerspective, const PointSource& points, int width, int height);

/// The same from any direction, a vector to the eye of any length above 0; right above and below, the upper
/// side of the picture is as in the views of those sides.
Look LookToward(const geometry::Vector3d& toward, bool isPerspective, const PointSource& points, int width,
                int height);

/// Moves and scales a look so that all points fit; the side stays the same.
Look FitPoints(Look look, const PointSource& points, int width, int height);

/// Moves the eye around the middle: `aside` about the upright axis of the scene, `over` about the horizontal
/// of the picture, in radians. It stops at the poles, so that up stays up.
Look TurnEye(Look look, double aside, double over);

/// Changes the scale by the factor; the point that is seen at the place stays there.
Look ZoomAt(Look look, double factor, double x, double y);

}  // namespace vanzet::scene
