#include "show/simulation.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>

#include "base/numbers.h"
#include "devices/kinds.h"
#include "devices/outline.h"

namespace vanzet::show {
namespace {

using Outline = std::vector<OutlineVertex>;

/// Reals are stored with six decimals.
constexpr double kLargestDifference = 1e-5;

/// The vertex of an item "WORD X Y ..."; a number that is missing is 0.
OutlineVertex VertexOf(std::string_view item) {
  if (const auto word = IntegerPrefix(item)) item.remove_prefix(word->used);
  OutlineVertex vertex{};
  for (double* const value : {&vertex.x, &vertex.y}) {
    const auto number = RealPrefix(item);
    if (!number) break;
    *value = number->value;
    item.remove_prefix(number->used);
  }
  return vertex;
}

/// The outline that the simulation has of a device with these values. A jaw's lies the other way: its height
/// is along x.
Outline SimulatedOutlineOf(const DeviceParams& params) {
  Outline outline = OutlineOf(params);
  if (!devices::IsJaw(params.type)) return outline;
  for (OutlineVertex& vertex : outline) std::swap(vertex.x, vertex.y);
  return outline;
}

/// Whether each vertex of one outline is one of the other, too.
bool IsWithin(const Outline& part, const Outline& whole) {
  return std::ranges::all_of(part, [&](const OutlineVertex& vertex) {
    return std::ranges::any_of(whole, [&](const OutlineVertex& other) {
      return std::abs(vertex.x - other.x) < kLargestDifference &&
             std::abs(vertex.y - other.y) < kLargestDifference;
    });
  });
}

bool HasItems(const project::Definition& definition, std::size_t operation, std::size_t section) {
  if (operation >= definition.operations.size()) return false;
  const auto& counts = definition.operations[operation].counts;
  return section < counts.size() && counts[section] > 0;
}

}  // namespace

std::array<SimulatedDevice, 5> SimulatedDevices(const scene::Equipment& equipment) {
  const auto& [main, sub] = equipment.spindles;
  // A center in the place of the sub spindle's clamp device has its operation, too.
  const std::size_t centerSolid = equipment.isCenterInSub ? 7 : 9;
  return {{{&main.clamp, 5, 11},
           {&main.jaw, 6, 12},
           {&sub.clamp, 7, 13},
           {&sub.jaw, 8, 14},
           {&equipment.center, centerSolid, 15}}};
}

SimulationState SimulationStateOf(const SimulatedDevice& simulated, const project::Definition& definition) {
  const DeviceParams& params = simulated.device->params;
  if (params.type == 0) return SimulationState::kNone;
  if (!HasItems(definition, simulated.solid, 1)) return SimulationState::kMissing;
  if (devices::IsOwn(params.type)) return SimulationState::kCurrent;
  Outline stored;
  for (const std::string& item : definition.Items(simulated.outline, 1)) stored.push_back(VertexOf(item));
  const Outline wanted = SimulatedOutlineOf(params);
  const bool isSame = IsWithin(stored, wanted) && IsWithin(wanted, stored);
  return isSame ? SimulationState::kCurrent : SimulationState::kOther;
}

}  // namespace vanzet::show
