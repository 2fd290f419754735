#include <algorithm>
#include <limits>

#include "host/host_functions.h"
#include "store/mill_turn_vdm.h"

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
  std::int64_t first = 1;  // behind the header
  for (std::int32_t before = 0; before < std::min(section, SectionCount()); ++before)
    first += ItemsOf(before);
  SingleSeek(Within32Bits(first));
}

bool MillTurnVdm::ItemSeek(std::int32_t section, std::int32_t item) {
  if (currentOperation < 0 || !IsItemValid(section, item)) return false;
  SectionSeek(section);
  // A step counts from where the position stands, which is the section's first item.
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
  currentCount = ItemsOf(section);
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
