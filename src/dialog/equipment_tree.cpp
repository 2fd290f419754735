#include "dialog/equipment_tree.h"

#include <algorithm>
#include <string>

#include "devices/kinds.h"
#include "dialog/texts.h"
#include "dialog/tree_nodes.h"
#include "store/billet_records.h"
#include "store/clamp_records.h"
#include "store/datum_records.h"
#include "store/finish_part_records.h"
#include "view/ids.h"

namespace vanzet::dialog {
namespace {

bool Has(PpDefIni& machine, NeedsOf needs) {
  switch (needs) {
    case NeedsOf::kSubSpindle: return machine.IsSubSpindleAvailable();
    case NeedsOf::kTailStock: return machine.IsTailStockAvailable();
    case NeedsOf::kLun: return machine.IsLunAvailable();
    default: return true;
  }
}

view::TreeNode NodeFrom(const TreeNodeRow& row) {
  std::string text = Text(row.message, row.defaultText);
  if (row.number > 0) text += " " + std::to_string(row.number);
  return {row.id, row.parent, text, false, false, row.bitmap, row.SelectedBitmap()};
}

/// True for a node whose branch stays closed.
bool IsKeptClosed(std::int32_t id) {
  return id == node::kNewDevices || TreeNodeOf(id).parent == node::kNewDevices;
}

/// A node that is bold when the device is of the kind.
struct DeviceNode {
  std::int32_t main, sub;
  const devices::Kind* kind;
};

constexpr DeviceNode kDeviceNodes[] = {
    {node::kChuckMain, node::kChuckSub, &devices::kChuck},
    {node::kColletMain, node::kColletSub, &devices::kCollet},
    {node::kMandrelMain, node::kMandrelSub, &devices::kMandrel},
    {node::kFaceDriverMain, node::kFaceDriverSub, &devices::kFaceDriver},
};

/// A node that is bold when a record has the type.
struct TypeNode {
  std::int32_t main, sub;
  std::int32_t type;
};

constexpr TypeNode kBilletNodes[] = {
    {node::kBilletCylindricMain, node::kBilletCylindricSub, billet_type::kCylindric},
    {node::kBilletFromFigureMain, node::kBilletFromFigureSub, billet_type::kFromFigures},
    {node::kBilletFromSolidMain, node::kBilletFromSolidSub, billet_type::kFromSolid},
};
constexpr TypeNode kFinishPartNodes[] = {
    {node::kFinishPartFromFigureMain, node::kFinishPartFromFigureSub, finish_part_type::kFromFigures},
    {node::kFinishPartFromSolidMain, node::kFinishPartFromSolidSub, finish_part_type::kFromSolid},
};
constexpr TypeNode kJawNode = {node::kJawMain, node::kJawSub, 0};

template <class Node>
std::int32_t NodeOf(const Node& node, std::int32_t spindle) {
  return spindle == 1 ? node.sub : node.main;
}

}  // namespace

void EquipmentTree::Fill(PpDefIni& machine) {
  nodes_.clear();
  for (const TreeNodeRow& row : TreeNodes()) {
    if (!dialog::Has(machine, row.needs)) continue;
    nodes_.push_back(NodeFrom(row));
    const auto parent = std::ranges::find(nodes_, row.parent, &view::TreeNode::id);
    if (parent != nodes_.end()) parent->isOpen = !IsKeptClosed(parent->id);
  }
}

bool EquipmentTree::Has(std::int32_t id) const {
  return std::ranges::find(nodes_, id, &view::TreeNode::id) != nodes_.end();
}

void EquipmentTree::MarkClampNodes(std::int32_t spindle, std::int32_t deviceType, std::int32_t jawType) {
  for (const DeviceNode& node : kDeviceNodes) {
    Mark(NodeOf(node, spindle), node.kind->Has(deviceType));
  }
  Mark(NodeOf(kJawNode, spindle), jawType != 0);
}

void EquipmentTree::MarkCenterNode(std::int32_t deviceType) {
  Mark(node::kCenter, devices::IsCenter(deviceType));
}

void EquipmentTree::MarkBilletNodes(std::int32_t spindle, std::int32_t billetType) {
  for (const TypeNode& node : kBilletNodes) Mark(NodeOf(node, spindle), billetType == node.type);
}

void EquipmentTree::MarkFinishPartNodes(std::int32_t spindle, std::int32_t finishPartType) {
  for (const TypeNode& node : kFinishPartNodes) Mark(NodeOf(node, spindle), finishPartType == node.type);
}

void EquipmentTree::MarkBezelNode(std::int32_t flag) {
  Mark(node::kBezel, flag >= 1);
}

void EquipmentTree::MarkDatumNode(const DatumRecord& datum) {
  Mark(node::kDatum, datum.clampingOutMain != 0 || datum.clampingOutSub != 0 || datum.originMain != 0 ||
                         datum.originSub != 0);
}

void EquipmentTree::MarkRecords(std::int32_t spur, PpDefIni& machine) {
  MarkSpindle(spur, 0);
  const bool isSubAvailable = machine.IsSubSpindleAvailable();
  if (isSubAvailable) MarkSpindle(spur, 1);
  std::string name;
  DeviceParams center;
  DatumRecord datum;
  BezelRecord bezel;
  ReadCenter(spur, isSubAvailable, name, center);
  ReadDatum(spur, datum);
  ReadBezel(spur, bezel);
  MarkCenterNode(center.type);
  MarkBezelNode(bezel.isUsed);
  MarkDatumNode(datum);
}

void EquipmentTree::MarkSpindle(std::int32_t spur, std::int32_t spindle) {
  std::string name;
  DeviceParams device;
  DeviceParams jaw;
  ReadClampDevice(spur, spindle, name, device);
  ReadJaw(spur, spindle, name, jaw);
  MarkClampNodes(spindle, device.type, jaw.type);
  BilletRecord billet;
  ReadBillet(spur, spindle, billet);
  MarkBilletNodes(spindle, billet.type);
  FinishPartRecord finishPart;
  ReadFinishPart(spur, spindle, finishPart);
  MarkFinishPartNodes(spindle, finishPart.type);
}

void EquipmentTree::Mark(std::int32_t id, bool isBold) {
  const auto node = std::ranges::find(nodes_, id, &view::TreeNode::id);
  if (node != nodes_.end()) node->isBold = isBold;
}

}  // namespace vanzet::dialog
