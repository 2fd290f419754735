#include "store/mill_turn_vdm.h"

#include <algorithm>
#include <limits>

#include "host/fields.h"
#include "host/host_functions.h"
#include "store/clamp_schema.h"

namespace vanzet::OrvoApi {
namespace {

using host::hostFunctions;

/// A header may hold any numbers; sums of them stay within those of the host's calls.
std::int32_t Within32Bits(std::int64_t number) {
  using Limits = std::numeric_limits<std::int32_t>;
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(number, Limits::min(), Limits::max()));
}

std::int32_t OneMore(std::int32_t count) {
  return Within32Bits(std::int64_t{count} + 1);
}

}  // namespace

bool MillTurnVdm::OperationExist(std::int32_t operation) {
  if (!IsOpen()) {
    ReportError("OperationExist: Vdm not open");
    return false;
  }
  return operation < Size();
}

bool MillTurnVdm::IsOpValid(std::int32_t operation) {
  if (!IsOpen()) {
    ReportError("IsOpValid: Vdm not open");
    return false;
  }
  const std::int32_t size = Size();
  if (operation >= 0 && operation < size) return true;
  ReportError("Operation " + std::to_string(operation) + " (0 based) out of range (" + std::to_string(size) +
              " oprations)");
  return false;
}

bool MillTurnVdm::OperationSelect(std::int32_t operation) {
  currentOperation = -1;
  operationKind = 0;
  operationFlag = false;
  sectionItems.clear();
  if (!IsOpValid(operation)) return false;
  currentOperation = operation;
  return ReadHeader();
}

bool MillTurnVdm::OperationCreate(std::int32_t operation, std::int32_t kind) {
  SeekFromStart(operation);
  // Sent also when closed, with the handle 0: the host passes over it, and the selection below reports.
  hostFunctions.OrvoMacroVdmInsertStr(handle, std::to_string(kind) + " 1 0", 1);
  return OperationSelect(operation);
}

bool MillTurnVdm::OperationDelete(std::int32_t operation) {
  if (operation >= Size()) return true;
  SeekFromStart(operation);
  hostFunctions.OrvoMacroVdmRemove(handle, 1);
  return true;
}

bool MillTurnVdm::ReadHeader() {
  SeekFromStart(currentOperation);
  std::string text;
  if (!IsOpen() || !SingleGet(text)) return false;

  std::size_t position = 0;
  if (host::ReadIntField(text, position, operationKind, 0) == 0) return false;
  if (host::ReadBoolField(text, position, operationFlag, false) == 0) return true;

  std::int32_t stated = 0;
  if (host::ReadIntField(text, position, stated, 0) != 0) {
    std::int32_t items = 0;
    while (host::ReadIntField(text, position, items, 0) != 0) sectionItems.push_back(items);
  }
  if (stated != SectionCount()) {
    ReportError("ReadHeader:: Operation (" + std::to_string(currentOperation) +
                ") actual number of sections (" + std::to_string(SectionCount()) +
                ") differs from that specified in header (" + std::to_string(stated) + ")");
  }
  return true;
}

bool MillTurnVdm::WriteHeader() {
  SeekFromStart(currentOperation);
  if (!IsOpen()) return false;
  std::string text;
  HeaderText(text);
  return SingleReplace(text);
}

void MillTurnVdm::HeaderText(std::string& text) const {
  text = std::to_string(operationKind) + (operationFlag ? " 1 " : " 0 ") + std::to_string(SectionCount());
  for (const std::int32_t items : sectionItems) text += ' ' + std::to_string(items);
}

bool MillTurnVdm::WriteVersion() {
  std::string text;
  if (HasItems(0, 2) && ItemSeek(0, 1)) SingleGet(text);
  std::size_t length = 0;
  const std::size_t start = host::FindFirstToken(text, 0, length);
  text.replace(start, length, kClampVersionText);
  if (!HasItems(0, 2)) {
    SectionAppend(0);
    FillUpTo(2, "");
    SectionCommit();
  }
  return ItemSeek(0, 1) && SingleReplace(text);
}

void MillTurnVdm::ReportError(const std::string& message) {
  ReportUnder("OrvoApi::MillTurnVdm", message);
}

bool MillTurnVdm::IsSectionValid(std::int32_t section) {
  if (section >= 0 && section < SectionCount()) return true;
  ReportError("Operation " + std::to_string(currentOperation) + " section " + std::to_string(section) +
              " (0 based) out of range (" + std::to_string(SectionCount()) + " sections)");
  return false;
}

bool MillTurnVdm::IsItemValid(std::int32_t section, std::int32_t item) {
  if (!IsSectionValid(section)) return false;
  const std::int32_t count = ItemsOf(section);
  if (item >= 0 && item < count) return true;
  ReportError("Operation " + std::to_string(currentOperation) + " section " + std::to_string(section) +
              " item " + std::to_string(item) + " (0 based) out of range (" + std::to_string(count) +
              " items)");
  return false;
}

bool MillTurnVdm::SectionEnter(std::int32_t section) {
  if (currentOperation < 0 || !IsSectionValid(section)) return false;
  SectionSeek(section);
  currentSection = section;
  return true;
}

void MillTurnVdm::SectionSeek(std::int32_t section) {
  SeekFromStart(currentOperation);
  std::int64_t first = 1;  // after the header
  for (std::int32_t before = 0; before < std::min(section, SectionCount()); ++before)
    first += ItemsOf(before);
  SingleSeek(Within32Bits(first));
}

bool MillTurnVdm::ItemSeek(std::int32_t section, std::int32_t item) {
  if (currentOperation < 0 || !IsItemValid(section, item)) return false;
  SectionSeek(section);
  // A step counts from the position, which is at the section's first item.
  if (item >= 1) SingleSeek(item);
  return true;
}

bool MillTurnVdm::SectionCreate(std::int32_t section) {
  currentCount = 0;
  if (section < SectionCount()) {
    ReportError("SectionCreate:: Operation (" + std::to_string(currentOperation) + ") section (" +
                std::to_string(section) + ") exist");
    SectionEnter(section);
    return false;
  }
  sectionItems.resize(static_cast<std::size_t>(section) + 1, 0);
  SectionSeek(section);
  currentSection = section;
  return true;
}

bool MillTurnVdm::DeleteItems(std::int32_t section) {
  if (!SectionEnter(section)) return false;
  if (!IsOpen()) {
    MacroVdm::ReportError("DeleteItems: Vdm not open");
    return false;
  }
  hostFunctions.OrvoMacroVdmSingleDelete(handle, ItemsOf(section));
  ItemsOf(section) = 0;
  return WriteHeader();
}

bool MillTurnVdm::SectionRewrite(std::int32_t section) {
  currentCount = 0;
  if (SectionCount() <= section) {
    SectionCreate(section);
  } else {
    DeleteItems(section);
  }
  return SectionEnter(section);
}

bool MillTurnVdm::SectionAppend(std::int32_t section) {
  if (section >= SectionCount()) SectionCreate(section);
  if (!SectionEnter(section)) return false;
  // A damaged header may count fewer than none.
  currentCount = std::max(0, ItemsOf(section));
  if (currentCount >= 1) SingleSeek(currentCount);
  return true;
}

bool MillTurnVdm::ItemAdd(const std::string& text) {
  if (!SingleAdd(text)) return false;
  currentCount = OneMore(currentCount);
  return true;
}

bool MillTurnVdm::SectionCommit() {
  if (currentSection >= 0 && currentSection < SectionCount()) ItemsOf(currentSection) = currentCount;
  return WriteHeader();
}

bool MillTurnVdm::ItemPut(std::int32_t section, std::int32_t item, const std::string& text) {
  if (!SectionEnter(section) && !SectionCreate(section)) return false;
  if (currentOperation < 0 || !IsItemValid(section, item)) {
    SectionAppend(section);
    do {
      SingleAdd("");
      currentCount = OneMore(currentCount);
    } while (currentCount <= item);
    ItemsOf(section) = currentCount;
    WriteHeader();
  }
  return ItemSeek(section, item) && SingleReplace(text);
}

bool MillTurnVdm::HasItems(std::int32_t section, std::int32_t count) const {
  return section < SectionCount() && ItemCount(section) >= count;
}

std::int32_t MillTurnVdm::ItemCount(std::int32_t section) const {
  return section < SectionCount() ? sectionItems[static_cast<std::size_t>(section)] : 0;
}

void MillTurnVdm::FillUpTo(std::int32_t count, const std::string& text) {
  while (currentCount < count && ItemAdd(text)) {
  }
}

}  // namespace vanzet::OrvoApi
