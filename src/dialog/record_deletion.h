#pragma once

#include <cstdint>

#include "dialog/equipment_tree.h"

/// The records that the tree's menu deletes.
namespace vanzet::dialog {

/// True for a node whose record can be deleted. No other node has a menu.
bool CanDeleteAt(std::int32_t node);

/// Deletes the record of a node, marks the tree, and removes what was drawn of the record. Does nothing at a
/// node without one.
void DeleteRecordAt(std::int32_t node, std::int32_t spur, std::int32_t spindle, EquipmentTree& tree);

}  // namespace vanzet::dialog
