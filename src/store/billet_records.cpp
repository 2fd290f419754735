#include "store/billet_records.h"

#include <algorithm>
#include <span>
#include <utility>

#include "host/bridge.h"
#include "host/fields.h"
#include "macro/command_text.h"
#include "store/record_frame.h"

namespace vanzet {
namespace {

using spindle_section::kBillet;
using Real = double BilletRecord::*;

/// The fields of a type's item that follow the type and the outer diameter.
struct BilletLayout {
  std::int32_t type;
  bool hasOuterDiameter;  ///< else its field is a constant 0
  std::span<const Real> reals;
};

constexpr Real kOfCylinder[] = {&BilletRecord::partLength, &BilletRecord::frontAllowance,
                                &BilletRecord::rearAllowance, &BilletRecord::innerDiameter};
constexpr Real kOfFigures[] = {&BilletRecord::partLength};
constexpr Real kOfSolid[] = {&BilletRecord::partLength, &BilletRecord::clampDiameter, &BilletRecord::angle};

// clang-format off
constexpr BilletLayout kLayouts[] = {
    { billet_type::kCylindric,   true,  kOfCylinder },
    { billet_type::kFromFigures, false, kOfFigures  },
    { billet_type::kFromSolid,   false, kOfSolid    },
};
// clang-format on

/// The row of a type, or null.
const BilletLayout* LayoutOf(std::int32_t type) {
  const auto* const row = std::ranges::find(kLayouts, type, &BilletLayout::type);
  return row == std::end(kLayouts) ? nullptr : row;
}

bool IsMain(std::int32_t spindle) {
  return spindle == 0;
}

/// The text of item 1. The reals of a cylinder are followed by a flag that hides it, the inverse of the
/// record's flag, and on the main spindle by the length of the bar.
std::string ValuesText(std::int32_t spindle, const BilletRecord& record) {
  std::string text = macro::FormatInt(record.type);
  const BilletLayout* const layout = LayoutOf(record.type);
  if (layout == nullptr) return text;
  text += layout->hasOuterDiameter ? " " + macro::FormatReal(record.outerDiameter) : " 0";
  for (const Real real : layout->reals) text += " " + macro::FormatReal(record.*real);
  if (record.type != billet_type::kCylindric) return text;
  text += record.drawOnScreen != 0 ? " 0" : " 1";
  if (IsMain(spindle)) text += " " + macro::FormatReal(record.barLength);
  return text;
}

/// Reads the text of item 1. Missing fields are 0; an unknown type has no fields.
void ReadValues(const std::string& text, std::int32_t spindle, BilletRecord& record) {
  std::size_t position = 0;
  host::ReadIntField(text, position, record.type, billet_type::kNone);
  const BilletLayout* const layout = LayoutOf(record.type);
  if (layout == nullptr) return;
  host::ReadRealField(text, position, record.outerDiameter, 0);
  for (const Real real : layout->reals) host::ReadRealField(text, position, record.*real, 0);
  if (record.type != billet_type::kCylindric) return;
  bool isHidden = false;
  host::ReadBoolField(text, position, isHidden, false);
  record.drawOnScreen = isHidden ? 0 : 1;
  if (IsMain(spindle)) host::ReadRealField(text, position, record.barLength, 0);
}

void WriteItems(BilletVdm& definition, std::int32_t spindle, const BilletRecord& record) {
  definition.OperationSelect(SpindleOperation(spindle));
  definition.DeleteItems(kBillet);
  definition.SectionRewrite(kBillet);
  const std::string label = IsMain(spindle) ? "MainBillet" : "SubBillet";
  definition.ItemAdd(record.type == billet_type::kFromSolid ? record.solidName : label);
  definition.ItemAdd(ValuesText(spindle, record));
  if (record.type == billet_type::kFromFigures) {
    definition.ItemAdd(record.figureOutside);
    definition.ItemAdd(record.figureInside);
  }
  definition.SectionCommit();
}

bool ReadItems(BilletVdm& definition, std::int32_t spindle, BilletRecord& record) {
  definition.OperationSelect(SpindleOperation(spindle));
  if (!definition.HasItems(kBillet, 2)) return false;
  definition.ItemSeek(kBillet, 1);
  std::string text;
  definition.SingleGet(text);
  ReadValues(text, spindle, record);
  // The figures are the items after the values, where the position is now.
  if (record.type == billet_type::kFromFigures) {
    ReadFigures(definition, record.figureOutside, record.figureInside);
  }
  if (record.type == billet_type::kFromSolid) {
    definition.ItemSeek(kBillet, 0);
    definition.SingleGet(record.solidName);
  } else if (LayoutOf(record.type) != nullptr) {
    record.clampDiameter = record.outerDiameter;
  }
  return true;
}

}  // namespace

std::int32_t WriteBillet(std::int32_t spur, std::int32_t spindle, const BilletRecord& record) {
  const std::int32_t result =
      WriteRecord(spur, [&](BilletVdm& definition) { WriteItems(definition, spindle, record); });
  if (result == kRecordDone && record.type == billet_type::kFromFigures) {
    host::RunMacro("crebilfromfig", IsMain(spindle) ? "1" : "2");
  }
  return result;
}

std::int32_t ReadBillet(std::int32_t spur, std::int32_t spindle, BilletRecord& record) {
  ClearBilletRecord(record);
  return ReadRecord(spur, [&](BilletVdm& definition) { return ReadItems(definition, spindle, record); });
}

void ClearBilletRecord(BilletRecord& record) {
  std::string kept = std::move(record.figureOutside);
  record = {};
  record.figureOutside = std::move(kept);
}

}  // namespace vanzet
