#include "check/changes.h"

#include "base/translations.h"
#include "section/section.h"

namespace vanzet::check {
namespace {

using geometry::Box;

/// How long an area is along the axis when it is higher than that: bodies that cut along the axis.
std::optional<double> LengthAlongAxis(const Area& area) {
  const Box box = section::BoxOf(area.region);
  if (area.region.loops.empty() || box.Width() >= box.Height()) return {};
  return box.Width();
}

/// Extents along the axis of a spindle, away from it.
Box OfSpindle(const Box& box, bool isSub) {
  if (!isSub) return box;
  return {geometry::Point(-box.max.x, box.min.y), geometry::Point(-box.min.x, box.max.y)};
}

}  // namespace

std::optional<Change> ClampingOutChange(const scene::Spindle& spindle, const Area& common) {
  const auto length = LengthAlongAxis(common);
  if (!length || spindle.clampingOut <= 0) return {};
  return Change{Translatable("the clamping out"), spindle.clampingOut, spindle.clampingOut + *length};
}

std::optional<Change> SubOriginChange(const scene::Equipment& equipment, const Area& common) {
  const auto length = LengthAlongAxis(common);
  const double main = equipment.spindles[0].origin, own = equipment.spindles[1].origin;
  if (!length || main == own) return {};
  return Change{Translatable("the origin of the sub spindle"), own,
                own > main ? own + *length : own - *length};
}

std::optional<Change> CylinderChange(const scene::Spindle& spindle, const HalfSection& billet,
                                     const Area& beyond) {
  constexpr double kClose = 1e-6;  // millimetres
  const scene::Billet& values = spindle.billet;
  if (values.type != scene::billet_type::kCylinder || beyond.region.loops.empty()) return {};
  const Box part = OfSpindle(section::BoxOf(beyond.region), billet.IsSub());
  const Box whole = OfSpindle(billet.box(), billet.IsSub());
  if (part.min.y > whole.max.y - kClose)
    return Change{Translatable("the outer diameter"), values.outerDiameter, 2 * part.max.y};
  if (part.max.y < whole.min.y + kClose)
    return Change{Translatable("the inner diameter"), values.innerDiameter, 2 * part.min.y};
  if (part.min.x > whole.max.x - kClose) {
    return Change{Translatable("the front allowance"), values.frontAllowance,
                  values.frontAllowance + part.max.x - whole.max.x};
  }
  if (part.max.x < whole.min.x + kClose && values.barLength <= 0) {
    return Change{Translatable("the rear allowance"), values.rearAllowance,
                  values.rearAllowance + whole.min.x - part.min.x};
  }
  return {};
}

}  // namespace vanzet::check
