#include "devices/outline.h"

#include <algorithm>
#include <cmath>

#include "devices/formula.h"
#include "devices/kinds.h"

namespace vanzet {
namespace {

/// The point at the distance `leg` from `corner` on the way to `towards`.
OutlineVertex Along(OutlineVertex corner, OutlineVertex towards, double leg) {
  const double part = leg / std::hypot(towards.x - corner.x, towards.y - corner.y);
  return {corner.x + (towards.x - corner.x) * part, corner.y + (towards.y - corner.y) * part};
}

bool Fits(OutlineVertex corner, OutlineVertex neighbour, double leg) {
  return leg > 0 && leg <= std::hypot(neighbour.x - corner.x, neighbour.y - corner.y);
}

/// The vertices of an outline, chamfers cut.
std::vector<OutlineVertex> VerticesOf(std::span<const devices::Corner> corners, const DeviceParams& params) {
  std::vector<OutlineVertex> sharp;
  for (const devices::Corner& corner : corners) {
    sharp.push_back({Evaluate(corner.x, params), Evaluate(corner.y, params)});
  }
  std::vector<OutlineVertex> outline;
  for (std::size_t i = 0; i < sharp.size(); ++i) {
    const OutlineVertex& before = sharp[(i + sharp.size() - 1) % sharp.size()];
    const OutlineVertex& after = sharp[(i + 1) % sharp.size()];
    const double leg = corners[i].chamfer.empty() ? 0 : Evaluate(corners[i].chamfer, params);
    if (Fits(sharp[i], before, leg) && Fits(sharp[i], after, leg)) {
      outline.push_back(Along(sharp[i], before, leg));
      outline.push_back(Along(sharp[i], after, leg));
    } else {
      outline.push_back(sharp[i]);
    }
  }
  return outline;
}

}  // namespace

std::vector<OutlineVertex> OutlineOf(const DeviceParams& params) {
  const devices::Outline* const outline = devices::FindOutline(params);
  return outline == nullptr ? std::vector<OutlineVertex>() : VerticesOf(outline->corners, params);
}

const devices::Outline* devices::FindOutline(const DeviceParams& params) {
  const Device* const device = Find(params.type);
  if (device == nullptr) return nullptr;
  const auto found = std::ranges::find_if(
      device->outlines, [&](const Outline& outline) { return Holds(outline.bore, params); });
  return found == device->outlines.end() ? nullptr : &*found;
}

}  // namespace vanzet
