#include "window/docks/equipment_pages.h"

#include <algorithm>

#include "define/tables.h"
#include "view/ids.h"

namespace vanzet::window {
namespace {

std::int32_t NodeOfClamp(const scene::Device& device, std::size_t spindle) {
  const devices::Kind* const kind = devices::KindOf(device.params.type);
  const auto rows = define::ClampRows();
  const auto row = std::ranges::find(rows, kind, &define::DeviceRow::kind);
  return row == rows.end() ? 0 : row->nodes[spindle];
}

template <class Record>
std::int32_t NodeOfKind(const define::Part<Record>& part, std::int32_t type, std::size_t spindle) {
  const auto kind = std::ranges::find(part.kinds, type, &define::Kind<Record>::type);
  return kind == part.kinds.end() ? 0 : kind->nodes[spindle];
}

}  // namespace

std::int32_t NodeOfPart(show::Part part, std::size_t side, const scene::Equipment& equipment) {
  const scene::Spindle& spindle = equipment.spindles[side];
  switch (part) {
    case show::Part::kNone: return 0;
    case show::Part::kClamp: return NodeOfClamp(spindle.clamp, side);
    case show::Part::kJaw: return define::JawRow().nodes[side];
    case show::Part::kBillet: return NodeOfKind(define::BilletPart(), spindle.billet.type, side);
    case show::Part::kFinishPart: return NodeOfKind(define::FinishedPart(), spindle.finishPart.type, side);
    case show::Part::kCenter: return node::kCenter;
    case show::Part::kSteadyRest: return node::kBezel;
    case show::Part::kDatum: return node::kDatum;
  }
  return 0;
}

std::int32_t NodeOf(const show::Row& row, const scene::Equipment& equipment) {
  return NodeOfPart(row.part, row.spindle, equipment);
}

std::int32_t NodeOf(const scene::SceneBody& body, const scene::Equipment& equipment) {
  return NodeOfPart(show::PartOf(body.kind), body.name.starts_with("sub ") ? 1 : 0, equipment);
}

std::string DeviceOf(const show::Row& row, const scene::Equipment& equipment) {
  const scene::Spindle& spindle = equipment.spindles[row.spindle];
  switch (row.part) {
    case show::Part::kClamp: return spindle.clamp.name;
    case show::Part::kJaw: return spindle.jaw.name;
    case show::Part::kCenter: return equipment.center.name;
    default: return {};
  }
}

}  // namespace vanzet::window
