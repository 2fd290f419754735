#include "scene/camera.h"

#include "scene/vectors.h"

namespace vanzet::scene {
namespace {

using geometry::Point3d;
using geometry::Vector3d;

constexpr double kEyeDistance = 3.2;  // in units of the reach: a weak perspective
constexpr double kEdgeOn = 1e-3;      // a plane seen under a smaller sine is not drawn

}  // namespace

Camera::Camera(const Look& look)
    : look_(look),
      right_(Cross(look.up, look.toward)),
      eye_(look.isPerspective ? look.reach * kEyeDistance : 0) {}

Vector3d Camera::Relative(const Point3d& point) const {
  return Seen(Vector3d(look_.middle, point));
}

Point3d Camera::Eye() const {
  return look_.middle + look_.toward * eye_;
}

Vector3d Camera::Seen(const Vector3d& vector) const {
  return {Dot(vector, right_), Dot(vector, look_.up), Dot(vector, look_.toward)};
}

PicturePoint Camera::Project(const Point3d& point) const {
  const Vector3d p = Relative(point);
  const double shrink = eye_ > 0 ? eye_ / (eye_ - p.dz) : 1;
  return {look_.shiftX + look_.scale * p.dx * shrink, look_.shiftY - look_.scale * p.dy * shrink,
          eye_ > 0 ? shrink * look_.reach : p.dz};
}

Vector3d Camera::ToEye(const Point3d& point) const {
  if (eye_ == 0) return look_.toward;
  return UnitVector(Vector3d(point, Eye()));
}

bool Camera::SeesFrontOf(const Plane& plane) const {
  if (eye_ == 0) return Dot(plane.normal, look_.toward) > kEdgeOn;
  return plane.Height(Eye()) > kEdgeOn * look_.reach;
}

double Camera::NearnessOf(const Plane& plane, double x, double y) const {
  const double across = (x - look_.shiftX) / look_.scale, above = (look_.shiftY - y) / look_.scale;
  const Point3d start = look_.middle + right_ * across + look_.up * above;
  if (eye_ == 0) return -plane.Height(start) / Dot(plane.normal, look_.toward);
  const Point3d eye = Eye();
  const Vector3d ray(eye, start);
  const double slope = Dot(plane.normal, ray);
  const double way = slope == 0 ? -1 : -plane.Height(eye) / slope;
  if (way <= 0) return -1e30;
  return Project(eye + ray * way).nearness;
}

}  // namespace vanzet::scene
