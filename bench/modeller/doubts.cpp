#include "modeller/doubts.h"

#include <algorithm>

#include "base/number_text.h"
#include "geometry/box.h"
#include "modeller/description.h"
#include "modeller/measures.h"

namespace vanzet::modeller {
namespace {

// Millimetres.
constexpr double kSmallest = 1, kLargest = 5000, kNear = 0.05;

std::string Length(double length, LengthUnit unit) {
  return NumberText(InUnit(length, unit)) + " " + std::string(WordOf(unit));
}

struct Range {
  const char* name;
  double from, to;
};

}  // namespace

std::vector<std::string> DoubtsAbout(const Mesh& laid, Role role, LengthUnit unit) {
  geometry::Box3d box;
  for (const geometry::Point3d& point : laid.points) box.Insert(point);
  const geometry::Point3d low = box.min, high = box.max;
  std::vector<std::string> doubts;
  if (!IsClosed(laid)) doubts.emplace_back("is not closed: it has no volume");
  const double size = std::max({high.x - low.x, high.y - low.y, high.z - low.z});
  if (size < kSmallest || size > kLargest) {
    doubts.push_back("is " + Length(size, unit) + " long at most; check its unit");
  }
  const bool isJaw = role == Role::kJaw;
  for (const Range& across : {Range{"y", low.y, high.y}, Range{"z", low.z, high.z}}) {
    if (isJaw || (across.from <= kNear && across.to >= -kNear)) continue;
    doubts.push_back("is beside the axis: its " + std::string(across.name) + " is from " +
                     Length(across.from, unit) + " to " + Length(across.to, unit));
  }
  // A pin may protrude from a face, but a face is not far behind or before the whole body.
  const double front = isJaw ? -low.x : high.x, depth = high.x - low.x;
  if (front < -kNear || front > std::max(depth / 2, kNear)) {
    doubts.push_back("has its " + std::string(isJaw ? "foot" : "face") + " at " +
                     Length(isJaw ? low.x : high.x, unit) + ", not at 0");
  }
  return doubts;
}

std::vector<std::string> DoubtsAbout(const Body& laid, const Mesh& mesh, Role role, LengthUnit unit) {
  std::vector<std::string> doubts = DoubtsAbout(mesh, role, unit);
  if (const int roots = RootsOf(laid); roots > 1) {
    doubts.push_back("has " + std::to_string(roots) +
                     " bodies that no assembly holds together; all of them are used");
  }
  return doubts;
}

}  // namespace vanzet::modeller
