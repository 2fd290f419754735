#pragma once

#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "geometry/point.h"

namespace vanzet::scene {

/// Standard views. In the front view x is to the right and y up, as in the drawing.
enum class View { kIso, kFront, kBack, kTop, kBottom, kLeft, kRight };

/// The words of the views, "iso" first, and the view of a word.
std::span<const std::string_view> ViewWords();
std::optional<View> ViewNamed(std::string_view word);

/// How something is looked at. Pixels count from the upper left corner of the picture.
struct Look {
  geometry::Vector3d toward{0, 0, 1}, up{0, 1, 0};  ///< unit vectors, to the eye and up, at right angles
  geometry::Point3d middle{0, 0, 0};                ///< turning goes about it
  double reach = 1;                                 ///< how far from the middle things are, in millimetres
  bool isPerspective = false;
  double scale = 1;               ///< pixels a millimetre, at the middle
  double shiftX = 0, shiftY = 0;  ///< where the middle is seen
};

/// Looks from one of the standard sides at points, so that all of them fit into the picture.
/// Requires: a size above 0
Look LookFrom(View view, bool isPerspective, const std::vector<geometry::Point3d>& points, int width,
              int height);

/// From the same side, moved and scaled so that all points fit.
Look Fitted(Look look, const std::vector<geometry::Point3d>& points, int width, int height);

/// Walks around the middle: `aside` about the upright axis of the scene, `over` about the horizontal of the
/// picture, in radians. Never past the poles, so that up stays up.
Look Turned(Look look, double aside, double over);

/// What is seen at the place stays there.
Look Zoomed(Look look, double factor, double x, double y);

}  // namespace vanzet::scene
