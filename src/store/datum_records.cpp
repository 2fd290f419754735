#include "store/datum_records.h"

#include <string>

#include "host/fields.h"
#include "macro/command_text.h"
#include "store/record_frame.h"

namespace vanzet {
namespace {

constexpr std::int32_t kSection = 1;

/// Writes the one item of an operation that has no other.
std::int32_t WriteOnlyItem(std::int32_t spur, std::int32_t operation, const std::string& text) {
  return WriteRecord(spur, [&](BilletVdm& definition) {
    definition.OperationSelect(operation);
    definition.DeleteItems(kSection);
    definition.SectionRewrite(kSection);
    definition.ItemAdd(text);
    definition.SectionCommit();
  });
}

/// Reads it. Where it is missing, `text` is the text that is there.
std::int32_t ReadOnlyItem(std::int32_t spur, std::int32_t operation, std::string& text) {
  return ReadRecord(spur, [&](BilletVdm& definition) {
    definition.OperationSelect(operation);
    definition.ItemSeek(kSection, 0);
    definition.SingleGet(text);
    return true;
  });
}

/// The first two fields are written and never used: whether there is a value, and a zero.
std::string DatumText(const DatumRecord& record) {
  const double values[] = {record.clampingOutMain, record.clampingOutSub, record.originMain,
                           record.originSub};
  std::string reals;
  bool hasValue = false;
  for (const double value : values) {
    reals += " " + macro::FormatReal(value);
    hasValue = hasValue || value != 0;
  }
  return (hasValue ? "1 " : "0 ") + macro::FormatReal(0) + reals;
}

void ReadDatumText(const std::string& text, DatumRecord& record) {
  std::size_t position = 0;
  std::int32_t hasValue = 0;
  double zero = 0;
  host::ReadIntField(text, position, hasValue, 0);
  host::ReadRealField(text, position, zero, 0);
  host::ReadRealField(text, position, record.clampingOutMain, 0);
  host::ReadRealField(text, position, record.clampingOutSub, record.clampingOutMain);
  host::ReadRealField(text, position, record.originMain, 0);
  host::ReadRealField(text, position, record.originSub, record.originMain);
}

}  // namespace

std::int32_t WriteDatum(std::int32_t spur, const DatumRecord& record) {
  return WriteOnlyItem(spur, clamp_operation::kDatum, DatumText(record));
}

std::int32_t ReadDatum(std::int32_t spur, DatumRecord& record) {
  std::string text;
  const std::int32_t result = ReadOnlyItem(spur, clamp_operation::kDatum, text);
  ReadDatumText(text, record);
  return result;
}

std::int32_t WriteBezel(std::int32_t spur, const BezelRecord& record) {
  return WriteOnlyItem(spur, clamp_operation::kBezel, std::to_string(record.isUsed));
}

std::int32_t ReadBezel(std::int32_t spur, BezelRecord& record) {
  std::string text;
  const std::int32_t result = ReadOnlyItem(spur, clamp_operation::kBezel, text);
  std::size_t position = 0;
  host::ReadIntField(text, position, record.isUsed, 0);
  return result;
}

}  // namespace vanzet
