#pragma once

#include <cstdint>
#include <vector>

#include "machine/pp_def_ini.h"
#include "macro/billet_drawing.h"
#include "view/dialog_state.h"

namespace vanzet::dialog {

/// The tree of what can be defined. A node in bold says that a record of its kind exists.
///
/// A mark of a node that this machine has not does nothing. `spindle` is 1 for the sub spindle, all else is
/// the main spindle.
class EquipmentTree {
 public:
  /// Puts in what the machine can have. Branches are open, but those below "Create new Clampdevice".
  void Fill(PpDefIni& machine);

  const std::vector<view::TreeNode>& Nodes() const { return nodes_; }
  bool Has(std::int32_t id) const;

  void MarkClampNodes(std::int32_t spindle, std::int32_t deviceType, std::int32_t jawType);
  void MarkCenterNode(std::int32_t deviceType);
  void MarkBilletNodes(std::int32_t spindle, std::int32_t billetType);
  void MarkFinishPartNodes(std::int32_t spindle, std::int32_t finishPartType);
  void MarkBezelNode(std::int32_t flag);
  void MarkDatumNode(const DatumRecord& datum);

 private:
  void Mark(std::int32_t id, bool isBold);

  std::vector<view::TreeNode> nodes_;
};

}  // namespace vanzet::dialog
