#include "dialog/equipment_tree.h"

#include <algorithm>
#include <string>
#include <utility>

#include "devices/kinds.h"
#include "dialog/texts.h"
#include "dialog/tree_nodes.h"
#include "store/clamp_records.h"
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
  return {.id = row.id,
          .parent = row.parent,
          .text = text,
          .bitmap = row.bitmap,
          .selectedBitmap = row.SelectedBitmap()};
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

std::vector<view::NodeValue> ValuesOf(const BilletRecord& billet) {
  if (billet.type != billet_type::kCylindric) return {};
  return {{"A", billet.outerDiameter}, {"B", billet.partLength},    {"C", billet.frontAllowance},
          {"D", billet.rearAllowance}, {"E", billet.innerDiameter}, {"F", billet.barLength}};
}

/// The name of the figure or of the solid that a part is made from.
template <class Record>
std::string NameOfPart(const Record& record, bool isSolid) {
  if (isSolid) return record.solidName;
  return record.figureInside.empty() ? record.figureOutside
                                     : record.figureOutside + ", " + record.figureInside;
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

void EquipmentTree::MarkBilletNodes(std::int32_t spindle, const BilletRecord& billet) {
  const bool isCylinder = billet.type == billet_type::kCylindric;
  const std::string name = isCylinder ? "" : NameOfPart(billet, billet.type == billet_type::kFromSolid);
  for (const TypeNode& node : kBilletNodes) {
    Mark(NodeOf(node, spindle), billet.type == node.type);
    Describe(NodeOf(node, spindle), name, ValuesOf(billet));
  }
}

void EquipmentTree::MarkFinishPartNodes(std::int32_t spindle, const FinishPartRecord& finishPart) {
  const std::string name = NameOfPart(finishPart, finishPart.type == finish_part_type::kFromSolid);
  for (const TypeNode& node : kFinishPartNodes) {
    Mark(NodeOf(node, spindle), finishPart.type == node.type);
    Describe(NodeOf(node, spindle), name, {});
  }
}

void EquipmentTree::MarkBezelNode(std::int32_t flag) {
  Mark(node::kBezel, flag >= 1);
}

void EquipmentTree::MarkDatumNode(const DatumRecord& datum) {
  Mark(node::kDatum, datum.clampingOutMain != 0 || datum.clampingOutSub != 0 || datum.originMain != 0 ||
                         datum.originSub != 0);
  Describe(node::kDatum, "",
           {{"A", datum.clampingOutMain},
            {"W", datum.originMain},
            {"B", datum.clampingOutSub},
            {"W", datum.originSub}});
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
  Describe(node::kCenter, name, {});
  MarkBezelNode(bezel.isUsed);
  MarkDatumNode(datum);
}

void EquipmentTree::MarkSpindle(std::int32_t spur, std::int32_t spindle) {
  std::string name;
  std::string jawName;
  DeviceParams device;
  DeviceParams jaw;
  ReadClampDevice(spur, spindle, name, device);
  ReadJaw(spur, spindle, jawName, jaw);
  MarkClampNodes(spindle, device.type, jaw.type);
  for (const DeviceNode& node : kDeviceNodes) Describe(NodeOf(node, spindle), name, {});
  Describe(NodeOf(kJawNode, spindle), jawName, {});
  BilletRecord billet;
  ReadBillet(spur, spindle, billet);
  MarkBilletNodes(spindle, billet);
  FinishPartRecord finishPart;
  ReadFinishPart(spur, spindle, finishPart);
  MarkFinishPartNodes(spindle, finishPart);
}

void EquipmentTree::Mark(std::int32_t id, bool isBold) {
  const auto node = std::ranges::find(nodes_, id, &view::TreeNode::id);
  if (node == nodes_.end()) return;
  node->isBold = isBold;
  node->name.clear();
  node->values.clear();
}

void EquipmentTree::Describe(std::int32_t id, const std::string& name, std::vector<view::NodeValue> values) {
  const auto node = std::ranges::find(nodes_, id, &view::TreeNode::id);
  if (node == nodes_.end() || !node->isBold) return;
  std::erase_if(values, [](const view::NodeValue& each) { return each.value == 0; });
  node->name = name;
  node->values = std::move(values);
}

}  // namespace vanzet::dialog
