#include "scene/camera.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "geometry/box.h"

namespace vanzet::scene {
namespace {

using geometry::Point3d;
using geometry::Vector3d;

/// Where the eye is, and what is up, as seen from the middle.
struct ViewRow {
  std::string_view word;
  Vector3d toward, up;
};
const std::array<ViewRow, 7> kViews = {{
    {"iso", {0.62, 0.48, 0.62}, {0, 1, 0}},
    {"front", {0, 0, 1}, {0, 1, 0}},
    {"back", {0, 0, -1}, {0, 1, 0}},
    {"top", {0, 1, 0}, {0, 0, -1}},
    {"bottom", {0, -1, 0}, {0, 0, 1}},
    {"left", {-1, 0, 0}, {0, 1, 0}},
    {"right", {1, 0, 0}, {0, 1, 0}},
}};

constexpr double kEyeDistance = 3.2;  // of the reach: a lens that hardly bends
constexpr double kMargin = 0.06;      // of the picture, on each side
constexpr double kEdgeOn = 1e-3;      // a plane that is seen under a smaller sine has no picture

Vector3d Unit(const Vector3d& vector) {
  return vector * (1 / vector.Magnitude());
}

}  // namespace

std::span<const std::string_view> ViewWords() {
  static const auto kWords = [] {
    std::array<std::string_view, kViews.size()> words;
    std::ranges::transform(kViews, words.begin(), &ViewRow::word);
    return words;
  }();
  return kWords;
}

std::optional<View> ViewNamed(std::string_view word) {
  const auto row = std::ranges::find(kViews, word, &ViewRow::word);
  if (row == kViews.end()) return std::nullopt;
  return static_cast<View>(row - kViews.begin());
}

Camera::Camera(View view, bool isPerspective, const std::vector<Point3d>& points, int width, int height) {
  const ViewRow& row = kViews.at(static_cast<std::size_t>(view));
  toward_ = Unit(row.toward);
  right_ = Unit(Cross(row.up, toward_));
  up_ = Cross(toward_, right_);
  geometry::Box3d box;
  for (const Point3d& point : points) box.Insert(point);
  if (points.empty()) box = geometry::Box3d({-1, -1, -1}, {1, 1, 1});
  middle_ = box.Mid();
  reach_ = std::max(Vector3d(middle_, box.max).Magnitude(), 1e-3);
  if (isPerspective) eye_ = reach_ * kEyeDistance;
  Fit(points, width, height);
}

/// Centres the points' picture and makes it as large as the margin allows.
void Camera::Fit(const std::vector<Point3d>& points, int width, int height) {
  PicturePoint low{1e30, 1e30, 0}, high{-1e30, -1e30, 0};
  for (const Point3d& point : points) {
    const PicturePoint p = Project(point);
    low = {std::min(low.x, p.x), std::min(low.y, p.y), 0};
    high = {std::max(high.x, p.x), std::max(high.y, p.y), 0};
  }
  if (points.empty()) low = {-1, -1, 0}, high = {1, 1, 0};
  const double room = 1 - 2 * kMargin, least = reach_ * 1e-6;
  scale_ = std::min(width * room / std::max(high.x - low.x, least),
                    height * room / std::max(high.y - low.y, least));
  shiftX_ = width / 2.0 - scale_ * (low.x + high.x) / 2;
  shiftY_ = height / 2.0 - scale_ * (low.y + high.y) / 2;
}

Vector3d Camera::Relative(const Point3d& point) const {
  return Seen(Vector3d(middle_, point));
}

Vector3d Camera::Seen(const Vector3d& vector) const {
  return {Dot(vector, right_), Dot(vector, up_), Dot(vector, toward_)};
}

PicturePoint Camera::Project(const Point3d& point) const {
  const Vector3d p = Relative(point);
  const double shrink = eye_ > 0 ? eye_ / (eye_ - p.dz) : 1;
  return {shiftX_ + scale_ * p.dx * shrink, shiftY_ - scale_ * p.dy * shrink,
          eye_ > 0 ? shrink * reach_ : p.dz};
}

Vector3d Camera::ToEye(const Point3d& point) const {
  if (eye_ == 0) return toward_;
  return Unit(Vector3d(point, middle_ + toward_ * eye_));
}

bool Camera::SeesTopOfPlane() const {
  if (eye_ == 0) return toward_.dz > kEdgeOn;
  return (middle_ + toward_ * eye_).z > kEdgeOn * reach_;
}

double Camera::NearnessOfPlane(double x, double y) const {
  const double across = (x - shiftX_) / scale_, above = (shiftY_ - y) / scale_;
  const Point3d start = middle_ + right_ * across + up_ * above;
  if (eye_ == 0) return -start.z / toward_.dz;
  const Point3d eye = middle_ + toward_ * eye_;
  const Vector3d ray(eye, start);
  const double way = ray.dz == 0 ? -1 : -eye.z / ray.dz;
  if (way <= 0) return -1e30;
  return Project(eye + ray * way).nearness;
}

}  // namespace vanzet::scene
