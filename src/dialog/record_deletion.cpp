#include "dialog/record_deletion.h"

#include <algorithm>

#include "macro/billet_drawing.h"
#include "store/billet_records.h"
#include "store/clamp_records.h"
#include "store/datum_records.h"
#include "store/finish_part_records.h"
#include "view/ids.h"

namespace vanzet::dialog {
namespace {

/// The place of a record, and the tree that marks it.
struct Place {
  std::int32_t spur;
  std::int32_t spindle;
  EquipmentTree& tree;
};

void DeleteClampDevice(const Place& place) {
  WriteClampDevice(place.spur, place.spindle, "", {});
  // Only a chuck carries jaws.
  ClearJaw(place.spur, place.spindle);
  place.tree.MarkClampNodes(place.spindle, 0, 0);
}

void DeleteBillet(const Place& place) {
  const BilletRecord billet;
  WriteBillet(place.spur, place.spindle, billet);
  place.tree.MarkBilletNodes(place.spindle, billet);
  DrawBillet(billet, place.spindle, 0.0);
}

void DeleteFinishPart(const Place& place) {
  const FinishPartRecord finishPart;
  WriteFinishPart(place.spur, place.spindle, finishPart);
  place.tree.MarkFinishPartNodes(place.spindle, finishPart);
}

void DeleteDatum(const Place& place) {
  const DatumRecord datum;
  WriteDatum(place.spur, datum);
  place.tree.MarkDatumNode(datum);
  DrawBilletOutMarks(datum, 0);
  DrawBilletOutMarks(datum, 1);
}

struct Deletion {
  std::int32_t node;
  void (*run)(const Place&);
};

constexpr Deletion kDeletions[] = {
    {node::kClampMain, DeleteClampDevice},     {node::kClampSub, DeleteClampDevice},
    {node::kBilletMain, DeleteBillet},         {node::kBilletSub, DeleteBillet},
    {node::kFinishPartMain, DeleteFinishPart}, {node::kFinishPartSub, DeleteFinishPart},
    {node::kRootDatum, DeleteDatum},
};

const Deletion* DeletionAt(std::int32_t node) {
  const auto* const row = std::ranges::find(kDeletions, node, &Deletion::node);
  return row == std::end(kDeletions) ? nullptr : row;
}

}  // namespace

bool CanDeleteAt(std::int32_t node) {
  return DeletionAt(node) != nullptr;
}

void DeleteRecordAt(std::int32_t node, std::int32_t spur, std::int32_t spindle, EquipmentTree& tree) {
  if (const Deletion* const deletion = DeletionAt(node)) deletion->run({spur, spindle, tree});
}

}  // namespace vanzet::dialog
