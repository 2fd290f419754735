#pragma once

#include "geometry/point.h"
#include "scene/look.h"
#include "scene/plane.h"

namespace vanzet::scene {

/// A point of a picture. A point nearer to the eye has a higher nearness, which is linear over the picture
/// of a plane.
struct PicturePoint {
  double x, y;
  double nearness;
};

/// Maps points of space to points of the picture; pixels count from the upper left corner.
class Camera {
 public:
  explicit Camera(const Look& look);

  PicturePoint Project(const geometry::Point3d& point) const;

  /// The unit vector from a point to the eye.
  geometry::Vector3d ToEye(const geometry::Point3d& point) const;

  /// The direction of a vector in the picture: x to the right, y up, z towards the eye.
  geometry::Vector3d Seen(const geometry::Vector3d& vector) const;

  /// Whether a plane is seen from its front, and its nearness at a place of the picture.
  bool SeesFrontOf(const Plane& plane) const;
  double NearnessOf(const Plane& plane, double x, double y) const;

  /// The distance of the eye from the middle of the look; 0: parallel projection.
  double EyeDistance() const { return eye_; }

  /// The size of the scene: a length to measure small distances by.
  double Reach() const { return look_.reach; }

 private:
  geometry::Vector3d Relative(const geometry::Point3d& point) const;
  geometry::Point3d Eye() const;

  Look look_;
  geometry::Vector3d right_;
  double eye_ = 0;  ///< the distance of the eye from the middle; 0: parallel projection
};

}  // namespace vanzet::scene
