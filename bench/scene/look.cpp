#include "scene/look.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "geometry/box.h"
#include "scene/camera.h"
#include "scene/vectors.h"

namespace vanzet::scene {
namespace {

using geometry::Point3d;
using geometry::Vector3d;

/// The directions to the eye, from the middle.
struct ViewRow {
  std::string_view word;
  Vector3d toward;
};
const std::array<ViewRow, 7> kViews = {{
    {"iso", {0.62, 0.48, 0.62}},
    {"front", {0, 0, 1}},
    {"back", {0, 0, -1}},
    {"top", {0, 1, 0}},
    {"bottom", {0, -1, 0}},
    {"left", {-1, 0, 0}},
    {"right", {1, 0, 0}},
}};

constexpr double kMargin = 0.06;              // of the picture, on each side
constexpr double kLeast = 1e-4, kMost = 1e5;  // pixels a millimetre
constexpr double kUpright = 1e-6;             // a direction that is less aside has no upright picture
constexpr double kPole = -1e-9;               // the most that up may point down

/// Turns a vector about a unit vector.
Vector3d TurnAbout(const Vector3d& vector, const Vector3d& axis, double angle) {
  const double c = std::cos(angle), s = std::sin(angle);
  return vector * c + Cross(axis, vector) * s + axis * (Dot(axis, vector) * (1 - c));
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
  const auto* const row = std::ranges::find(kViews, word, &ViewRow::word);
  if (row == kViews.end()) return std::nullopt;
  return static_cast<View>(row - kViews.begin());
}

Look LookFrom(View view, bool isPerspective, const PointSource& points, int width, int height) {
  return LookToward(kViews.at(static_cast<std::size_t>(view)).toward, isPerspective, points, width, height);
}

Look LookToward(const Vector3d& toward, bool isPerspective, const PointSource& points, int width,
                int height) {
  Look look;
  look.toward = UnitVector(toward);
  const bool isUpright = std::fabs(look.toward.dx) + std::fabs(look.toward.dz) < kUpright;
  const Vector3d up = isUpright ? Vector3d(0, 0, look.toward.dy > 0 ? -1 : 1) : Vector3d(0, 1, 0);
  look.up = Cross(look.toward, UnitVector(Cross(up, look.toward)));
  look.isPerspective = isPerspective;
  return FitPoints(look, points, width, height);
}

Look FitPoints(Look look, const PointSource& points, int width, int height) {
  geometry::Box3d box;
  points.VisitAll([&box](const Point3d& point) { box.Insert(point); });
  const bool isEmpty = box.min.x > box.max.x;
  if (isEmpty) box = geometry::Box3d({-1, -1, -1}, {1, 1, 1});
  look.middle = box.Mid();
  look.reach = std::max(Vector3d(look.middle, box.max).Magnitude(), 1e-3);
  look.scale = 1;
  look.shiftX = look.shiftY = 0;
  PicturePoint low{1e30, 1e30, 0}, high{-1e30, -1e30, 0};
  const Camera camera(look);
  points.VisitAll([&](const Point3d& point) {
    const PicturePoint p = camera.Project(point);
    low = {std::min(low.x, p.x), std::min(low.y, p.y), 0};
    high = {std::max(high.x, p.x), std::max(high.y, p.y), 0};
  });
  if (isEmpty) low = {-1, -1, 0}, high = {1, 1, 0};
  const double room = 1 - 2 * kMargin, least = look.reach * 1e-6;
  look.scale = std::min(width * room / std::max(high.x - low.x, least),
                        height * room / std::max(high.y - low.y, least));
  look.shiftX = width / 2.0 - look.scale * (low.x + high.x) / 2;
  look.shiftY = height / 2.0 - look.scale * (low.y + high.y) / 2;
  return look;
}

Look TurnEye(Look look, double aside, double over) {
  const Vector3d upright(0, 1, 0);
  look.toward = TurnAbout(look.toward, upright, aside);
  look.up = TurnAbout(look.up, upright, aside);
  const Vector3d right = UnitVector(Cross(look.up, look.toward));
  const Vector3d up = TurnAbout(look.up, right, over);
  if (up.dy < kPole) return look;
  look.toward = UnitVector(TurnAbout(look.toward, right, over));
  look.up = UnitVector(Cross(look.toward, right));
  return look;
}

Look ZoomAt(Look look, double factor, double x, double y) {
  const double scale = std::clamp(look.scale * factor, kLeast, kMost);
  const double applied = scale / look.scale;
  look.scale = scale;
  look.shiftX = x + (look.shiftX - x) * applied;
  look.shiftY = y + (look.shiftY - y) * applied;
  return look;
}

}  // namespace vanzet::scene
