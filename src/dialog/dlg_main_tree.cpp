#include <algorithm>

#include "dialog/dialog_controls.h"
#include "dialog/dlg_main.h"
#include "dialog/texts.h"
#include "host/message_ids.h"
#include "macro/billet_drawing.h"
#include "store/billet_records.h"
#include "store/clamp_records.h"
#include "store/datum_records.h"
#include "store/finish_part_records.h"
#include "view/ids.h"

// What the dialog does with its tree: selections, the menu with its one command, and the marks.

namespace vanzet::dialog {

/// A node whose record can be deleted; no other node has a menu.
struct Deletion {
  std::int32_t node;
  void (CDlgMain::*run)();

  static const Deletion* Of(std::int32_t node);
};

const Deletion* Deletion::Of(std::int32_t node) {
  static constexpr Deletion kDeletions[] = {
      {node::kClampMain, &CDlgMain::DeleteClampDevice},
      {node::kClampSub, &CDlgMain::DeleteClampDevice},
      {node::kBilletMain, &CDlgMain::DeleteBillet},
      {node::kBilletSub, &CDlgMain::DeleteBillet},
      {node::kFinishPartMain, &CDlgMain::DeleteFinishPart},
      {node::kFinishPartSub, &CDlgMain::DeleteFinishPart},
      {node::kRootDatum, &CDlgMain::DeleteDatum},
  };
  const auto* const row = std::ranges::find(kDeletions, node, &Deletion::node);
  return row == std::end(kDeletions) ? nullptr : row;
}

void CDlgMain::OnTreeSelection() {
  if (selectedNode_ == 0) return;
  const TreeNodeRow& row = TreeNodeOf(selectedNode_);
  currentSpindle_ = row.spindle;
  currentDeviceType_ = row.deviceType;
  activePage_ = row.page;
  ActivePage().Activate();
  Focus(control::kTree, false);
}

void CDlgMain::OnContextMenu(std::int32_t node) {
  if (!tree_.Has(node) || Deletion::Of(node) == nullptr) return;
  const auto chosen = view_.Popup(node, {{command::kDeleteRecord, Text(message::kDeleteRecord)}});
  if (chosen) posted_.push_back(*chosen);
  selectedNode_ = node;
  OnTreeSelection();
}

void CDlgMain::OnSpurChange() {
  RefreshTreeMarks();
  ActivePage().OnSetActive();
}

void CDlgMain::RefreshTreeMarks() {
  RefreshSpindleMarks(0);
  const bool isSubAvailable = machine_.IsSubSpindleAvailable();
  if (isSubAvailable) RefreshSpindleMarks(1);
  const std::int32_t spur = SelectedSpur();
  std::string name;
  DeviceParams center;
  DatumRecord datum;
  BezelRecord bezel;
  ReadCenter(spur, isSubAvailable, name, center);
  ReadDatum(spur, datum);
  ReadBezel(spur, bezel);
  tree_.MarkCenterNode(center.type);
  tree_.MarkBezelNode(bezel.isUsed);
  tree_.MarkDatumNode(datum);
}

void CDlgMain::RefreshSpindleMarks(std::int32_t spindle) {
  const std::int32_t spur = SelectedSpur();
  std::string name;
  DeviceParams device;
  DeviceParams jaw;
  ReadClampDevice(spur, spindle, name, device);
  ReadJaw(spur, spindle, name, jaw);
  tree_.MarkClampNodes(spindle, device.type, jaw.type);
  BilletRecord billet;
  ReadBillet(spur, spindle, billet);
  tree_.MarkBilletNodes(spindle, billet.type);
  FinishPartRecord finishPart;
  ReadFinishPart(spur, spindle, finishPart);
  tree_.MarkFinishPartNodes(spindle, finishPart.type);
}

void CDlgMain::DeleteNodeRecord() {
  const Deletion* const deletion = Deletion::Of(selectedNode_);
  if (deletion != nullptr) (this->*deletion->run)();
}

void CDlgMain::DeleteClampDevice() {
  WriteClampDevice(SelectedSpur(), currentSpindle_, "", {});
  // Only a chuck carries jaws.
  ClearJaw(SelectedSpur(), currentSpindle_);
  tree_.MarkClampNodes(currentSpindle_, 0, 0);
}

void CDlgMain::DeleteBillet() {
  const BilletRecord billet;
  WriteBillet(SelectedSpur(), currentSpindle_, billet);
  tree_.MarkBilletNodes(currentSpindle_, billet.type);
  DrawBillet(billet, currentSpindle_, 0.0);
}

void CDlgMain::DeleteFinishPart() {
  const FinishPartRecord finishPart;
  WriteFinishPart(SelectedSpur(), currentSpindle_, finishPart);
  tree_.MarkFinishPartNodes(currentSpindle_, finishPart.type);
}

void CDlgMain::DeleteDatum() {
  const DatumRecord datum;
  WriteDatum(SelectedSpur(), datum);
  tree_.MarkDatumNode(datum);
  DrawBilletOutMarks(datum, 0);
  DrawBilletOutMarks(datum, 1);
}

}  // namespace vanzet::dialog
