#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "store/macro_vdm.h"

namespace vanzet::OrvoApi {

/// A VDM whose records are operations of sections.
///
/// Shape    record = operation, from 0. Item 0 of a record is the header, "<kind> <flag> <sections> <items of
///          section 0> <items of section 1> ..."; the sections' items follow one after the other
/// Story    OperationSelect or OperationCreate; then for each section to be written SectionRewrite (or
///          SectionAppend), any number of ItemAdd, SectionCommit. Without the commit the header does not
///          count the items, and every later section is found off by their number
/// Errors   as MacroVdm; reports of this class are under its own name, those of its base under the base's
///
/// The header of the selected operation is kept in memory; selecting another one discards it. Positions are
/// found by adding up its counts at every access.
class MillTurnVdm : public MacroVdm {
 public:
  using MacroVdm::MacroVdm;
  ~MillTurnVdm() override = default;

  /// True when the number is below the count of operations.
  bool OperationExist(std::int32_t operation);

  /// True when the operation exists; else reports.
  bool IsOpValid(std::int32_t operation);

  /// Makes the operation current and reads its header. None is current when the number is not valid.
  bool OperationSelect(std::int32_t operation);

  /// Inserts a new operation without sections before the record of that number and selects it.
  bool OperationCreate(std::int32_t operation, std::int32_t kind);

  /// Removes the operation, so that later ones move down by one. True also when it does not exist.
  bool OperationDelete(std::int32_t operation);

  /// Reads the header of the current operation. False when it has no kind; a count of sections that
  /// is not that of the list is reported, and the list holds.
  /// Requires: `sectionItems` is empty, the read appends.
  bool ReadHeader();

  /// Replaces the header of the current operation by the one in memory.
  bool WriteHeader();
  void HeaderText(std::string& text) const;

  /// True when the current operation has the section; else reports.
  bool IsSectionValid(std::int32_t section);

  /// True when the section is valid and has the item; else reports.
  bool IsItemValid(std::int32_t section, std::int32_t item);

  /// True when the current operation has the section with at least `count` items. Reports nothing.
  bool HasItems(std::int32_t section, std::int32_t count) const;

  /// The items of a section by the header, 0 for one that is not there. Reports nothing.
  std::int32_t ItemCount(std::int32_t section) const;

  /// Goes to the start of the section, after a check, and makes it the one under writing.
  bool SectionEnter(std::int32_t section);

  /// Goes to the first item of the section, or to its place. The section is not checked.
  void SectionSeek(std::int32_t section);

  /// Goes to the item, after a check.
  bool ItemSeek(std::int32_t section, std::int32_t item);

  /// Extends the sections in memory up to this one and goes to its start. False, after a report, when it
  /// exists. The new sections reach the VDM with the next WriteHeader.
  bool SectionCreate(std::int32_t section);

  /// Empties the section in the VDM and in the header.
  bool DeleteItems(std::int32_t section);

  /// Prepares to rewrite the section: it is empty, and the position is at its start.
  bool SectionRewrite(std::int32_t section);

  /// Prepares to add at the end of the section, which is made when it is missing.
  bool SectionAppend(std::int32_t section);

  /// Adds an item to the section under writing.
  bool ItemAdd(const std::string& text);

  /// Ends the writing of a section: its count goes into the header.
  bool SectionCommit();

  /// Overwrites one item, making what is missing before it. True when the item was replaced.
  bool ItemPut(std::int32_t section, std::int32_t item, const std::string& text);

  /// Puts the version 100 in front of item 1 of section 0 of the current operation, in the place of the
  /// first field there; the rest of the item stays.
  bool WriteVersion();

  void ReportError(const std::string& message);

 protected:
  std::int32_t SectionCount() const { return static_cast<std::int32_t>(sectionItems.size()); }

  /// The items of a section by the header. Requires: the section exists.
  std::int32_t& ItemsOf(std::int32_t section) { return sectionItems[static_cast<std::size_t>(section)]; }

  /// Adds items with `text` to the section under writing until it has `count`, as long as that goes well.
  void FillUpTo(std::int32_t count, const std::string& text);

  std::int32_t currentOperation = -1;      ///< whose header is in memory; -1: none
  std::int32_t operationKind = 0;          ///< kept for the operation, never interpreted here
  bool operationFlag = false;              ///< likewise
  std::vector<std::int32_t> sectionItems;  ///< the items of each section, from the header
  std::int32_t currentSection = -1;        ///< the section under writing
  std::int32_t currentCount = 0;           ///< its items so far
};

}  // namespace vanzet::OrvoApi
