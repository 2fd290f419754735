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

/// A point of a picture. What is nearer to the eye has a higher nearness, which is linear over the picture of
/// a plane.
struct PicturePoint {
  double x, y;
  double nearness;
};

/// Looks at a number of points so that all of them fit into a picture; pixels from the upper left corner.
class Camera {
 public:
  /// Requires: a size above 0
  Camera(View view, bool isPerspective, const std::vector<geometry::Point3d>& points, int width, int height);

  PicturePoint Project(const geometry::Point3d& point) const;

  /// The unit vector from a point to the eye.
  geometry::Vector3d ToEye(const geometry::Point3d& point) const;

  /// The direction of a vector in the picture: x to the right, y up, z towards the eye.
  geometry::Vector3d Seen(const geometry::Vector3d& vector) const;

  /// Whether a plane z = 0 is seen from the side of the positive z, and the nearness that it has at a place
  /// of the picture.
  bool SeesTopOfPlane() const;
  double NearnessOfPlane(double x, double y) const;

  /// How large the points' surroundings are: a length to measure small distances by.
  double Reach() const { return reach_; }

 private:
  geometry::Vector3d Relative(const geometry::Point3d& point) const;
  void Fit(const std::vector<geometry::Point3d>& points, int width, int height);

  geometry::Vector3d right_, up_, toward_;
  geometry::Point3d middle_;
  double reach_ = 1;
  double eye_ = 0;  ///< how far the eye is from the middle; 0: parallel projection
  double scale_ = 1, shiftX_ = 0, shiftY_ = 0;
};

}  // namespace vanzet::scene
