#include "store/finish_part_records.h"

#include "host/fields.h"
#include "store/record_frame.h"

namespace vanzet {
namespace {

constexpr std::int32_t kSection = 1;

std::int32_t FinishPartOperation(std::int32_t spindle) {
  return spindle == 1 ? clamp_operation::kFinishPartSub : clamp_operation::kFinishPartMain;
}

bool ReadItems(BilletVdm& definition, std::int32_t operation, FinishPartRecord& record) {
  if (!definition.OperationExist(operation)) return false;
  definition.OperationSelect(operation);
  definition.SectionEnter(kSection);
  std::string text;
  definition.SingleGet(text);
  std::size_t position = 0;
  host::ReadIntField(text, position, record.type, finish_part_type::kNone);
  if (record.type == finish_part_type::kFromFigures) {
    ReadFigures(definition, record.figureOutside, record.figureInside);
  }
  if (record.type == finish_part_type::kFromSolid) definition.SingleGet(record.solidName);
  return true;
}

}  // namespace

std::int32_t WriteFinishPart(std::int32_t spur, std::int32_t spindle, const FinishPartRecord& record) {
  return WriteRecord(spur, [&](BilletVdm& definition) {
    definition.OperationSelect(FinishPartOperation(spindle));
    definition.SectionRewrite(kSection);
    definition.ItemAdd(std::to_string(record.type));
    if (record.type == finish_part_type::kFromFigures) {
      definition.ItemAdd(record.figureOutside);
      definition.ItemAdd(record.figureInside);
    }
    if (record.type == finish_part_type::kFromSolid) definition.ItemAdd(record.solidName);
    definition.SectionCommit();
  });
}

std::int32_t ReadFinishPart(std::int32_t spur, std::int32_t spindle, FinishPartRecord& record) {
  record.type = finish_part_type::kNone;
  record.figureInside.clear();
  record.solidName.clear();
  return ReadRecord(spur, [&](BilletVdm& definition) {
    return ReadItems(definition, FinishPartOperation(spindle), record);
  });
}

}  // namespace vanzet
