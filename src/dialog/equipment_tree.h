#pragma once

#include <cstdint>
#include <vector>

#include "machine/pp_def_ini.h"
#include "store/billet_records.h"
#include "store/datum_records.h"
#include "store/finish_part_records.h"
#include "view/dialog_state.h"

namespace vanzet::dialog {

/// The tree of what can be defined. A node in bold says that a record of its kind exists.
///
/// Marking a node that this machine does not have does nothing. `spindle` is 1 for the sub spindle; any other
/// value is the main spindle.
class EquipmentTree {
 public:
  /// Adds the nodes of what the machine can have. Branches are open, except those below "Create new
  /// Clampdevice".
  void Fill(PpDefIni& machine);

  const std::vector<view::TreeNode>& Nodes() const { return nodes_; }
  bool Has(std::int32_t id) const;

  /// Reads all records of a spur and marks their nodes.
  void MarkRecords(std::int32_t spur, PpDefIni& machine);

  void MarkClampNodes(std::int32_t spindle, std::int32_t deviceType, std::int32_t jawType);
  void MarkCenterNode(std::int32_t deviceType);
  void MarkBilletNodes(std::int32_t spindle, const BilletRecord& billet);
  void MarkFinishPartNodes(std::int32_t spindle, const FinishPartRecord& finishPart);
  void MarkBezelNode(std::int32_t flag);
  void MarkDatumNode(const DatumRecord& datum);

 private:
  void MarkSpindle(std::int32_t spur, std::int32_t spindle);
  void Mark(std::int32_t id, bool isBold);

  /// Adds to a node in bold what is defined there.
  void Describe(std::int32_t id, const std::string& name, std::vector<view::NodeValue> values);

  std::vector<view::TreeNode> nodes_;
};

}  // namespace vanzet::dialog
