#include "window/checks/dialog_value.h"

#include <algorithm>

#include "devices/kinds.h"
#include "view/ids.h"
#include "window/docks/equipment_pages.h"

namespace vanzet::window {
namespace {

using check::Where;
using scene::Equipment;
using show::Part;

// The controls of a value on the pages that its part has.
constexpr std::int32_t kDevice[] = {control::kDeviceList};
constexpr std::int32_t kOwnDevice[] = {control::kPath};
constexpr std::int32_t kBarLength[] = {control::kBarLength};
constexpr std::int32_t kOuter[] = {control::kOuterDiameter, control::kFigureOutside, control::kSolid};
constexpr std::int32_t kInner[] = {control::kInnerDiameter, control::kFigureInside, control::kSolid};
constexpr std::int32_t kClampedOutside[] = {control::kClampDiameter, control::kOuterDiameter,
                                            control::kFigureOutside};
constexpr std::int32_t kClampedInside[] = {control::kClampDiameter, control::kInnerDiameter,
                                           control::kFigureInside};
constexpr std::int32_t kFront[] = {control::kFrontAllowance};
constexpr std::int32_t kRear[] = {control::kRearAllowance};
constexpr std::int32_t kShape[] = {control::kFigureOutside, control::kSolid, control::kOuterDiameter};
constexpr std::int32_t kUse[] = {control::kUseBezel};
constexpr std::int32_t kClampingOut[][1] = {{control::kClampingOutMain}, {control::kClampingOutSub}};
constexpr std::int32_t kOrigin[][1] = {{control::kOriginMain}, {control::kOriginSub}};

/// A value of a page, by its word. Those of the main spindle and of the sub spindle may be two.
struct FieldRow {
  const char* value;
  Part part;
  std::span<const std::int32_t> main, sub;
};

/// The part whose page can mend what a rule finds, and the value that is meant, where the finding names none.
/// Without a value the device is meant, or the shape of the work.
struct PageRow {
  const char* rule;
  Part part;
  const char* value = "";
};

// clang-format off
constexpr FieldRow kFields[] = {
    { "bar_length",      Part::kBillet, kBarLength,      kBarLength },
    { "clamp_diameter",  Part::kBillet, kClampedOutside, kClampedOutside },
    { "clamp_inside",    Part::kBillet, kClampedInside,  kClampedInside },
    { "clamping_out",    Part::kDatum,  kClampingOut[0], kClampingOut[1] },
    { "front_allowance", Part::kBillet, kFront,          kFront },
    { "inner_diameter",  Part::kBillet, kInner,          kInner },
    { "origin",          Part::kDatum,  kOrigin[0],      kOrigin[1] },
    { "outer_diameter",  Part::kBillet, kOuter,          kOuter },
    { "rear_allowance",  Part::kBillet, kRear,           kRear },
};

constexpr PageRow kPages[] = {
    { "EQ-101", Part::kClamp,      "" },
    { "EQ-102", Part::kClamp,      "" },
    { "EQ-103", Part::kClamp,      "" },
    { "EQ-104", Part::kBillet,     "" },
    { "EQ-105", Part::kClamp,      "" },
    { "EQ-201", Part::kBillet,     "clamp_diameter" },
    { "EQ-202", Part::kBillet,     "clamp_diameter" },
    { "EQ-203", Part::kBillet,     "outer_diameter" },
    { "EQ-204", Part::kFinishPart },
    { "EQ-205", Part::kDatum,      "origin" },
    { "EQ-206", Part::kCenter,     "" },
    { "EQ-301", Part::kFinishPart },
    { "EQ-302", Part::kDatum,      "clamping_out" },
    { "EQ-303", Part::kDatum,      "clamping_out" },
    { "EQ-304", Part::kDatum,      "origin" },
    { "EQ-305", Part::kBillet,     "bar_length" },
    { "EQ-401", Part::kClamp,      "" },
    { "EQ-402", Part::kClamp,      "" },
};
// clang-format on

const FieldRow* FieldOf(const QString& value) {
  const auto* const row =
      std::ranges::find_if(kFields, [&](const auto& each) { return value == each.value; });
  return row == std::end(kFields) ? nullptr : row;
}

PageRow PageOf(const ReportedFinding& finding) {
  const auto* const row =
      std::ranges::find_if(kPages, [&](const PageRow& each) { return finding.rule == each.rule; });
  PageRow page = row == std::end(kPages) ? PageRow{"", Part::kNone} : *row;
  if (finding.where == Where::kCenter) page.part = Part::kCenter;
  if (finding.where == Where::kSteadyRest) page.part = Part::kSteadyRest;
  if (finding.part != Part::kNone) page.part = finding.part;
  return page;
}

/// The datum is one page; its findings are about the side of their bodies.
bool IsOfSub(const ReportedFinding& finding) {
  return finding.where == Where::kSub || (finding.where == Where::kDatum && !finding.bodies.isEmpty() &&
                                          finding.bodies.front().startsWith("sub "));
}

std::span<const std::int32_t> FieldsOfDevice(const scene::Device& device) {
  if (devices::IsOwn(device.params.type)) return kOwnDevice;
  return kDevice;
}

/// The controls of a part about which the finding says no more.
std::span<const std::int32_t> FieldsOf(Part part, std::size_t side, const Equipment& equipment) {
  switch (part) {
    case Part::kClamp: return FieldsOfDevice(equipment.spindles[side].clamp);
    case Part::kJaw: return FieldsOfDevice(equipment.spindles[side].jaw);
    case Part::kCenter: return FieldsOfDevice(equipment.center);
    case Part::kBillet:
    case Part::kFinishPart: return kShape;
    case Part::kSteadyRest: return kUse;
    case Part::kNone:
    case Part::kDatum: return {};
  }
  return {};
}

/// A spindle without a clamp device gets a chuck.
std::int32_t NodeFor(Part part, std::size_t side, const Equipment& equipment) {
  constexpr std::int32_t kChucks[] = {node::kChuckMain, node::kChuckSub};
  const std::int32_t node = NodeOfPart(part, side, equipment);
  return node == 0 && part == Part::kClamp ? kChucks[side] : node;
}

}  // namespace

DialogValue DialogValueOf(const ReportedFinding& finding, const Equipment& equipment) {
  const std::size_t side = IsOfSub(finding) ? 1 : 0;
  const PageRow page = PageOf(finding);
  QString value = finding.mendedBy;
  const FieldRow* field = FieldOf(value);
  const Part part = field != nullptr ? field->part : page.part;
  if (field == nullptr) value = page.value;
  if (value == "clamp_diameter" && equipment.spindles[side].clampsInside) value = "clamp_inside";
  field = FieldOf(value);
  const std::int32_t node = NodeFor(part, side, equipment);
  if (field == nullptr || field->part != part) return {node, FieldsOf(part, side, equipment)};
  return {node, side == 1 ? field->sub : field->main};
}

}  // namespace vanzet::window
