#pragma once

#include <vector>

#include "base/text_line_reader.h"

namespace vanzet::contour {

/// A pair of lines of a drawing: what is told, and its value.
struct DxfGroup {
  int code = 0;
  std::string value;
  int line = 0;  ///< of the value
};

/// What stands between two groups of code 0: the name of the entity and its groups, as far as they are used.
struct DxfEntity {
  std::string kind;
  int line = 0;
  std::vector<DxfGroup> groups;

  bool Has(int code) const;
};

/// Reads the groups of a drawing.
class DxfGroupReader {
 public:
  DxfGroupReader(std::istream& text, const std::string& name) : lines_(text, name) {}

  /// Gives the next group. Refused at the end of the text: a drawing ends with its group "0 EOF".
  Result<DxfGroup> Next();

  const TextLineReader& lines() const { return lines_; }

 private:
  TextLineReader lines_;
};

/// The layer, the flags and the coordinates: what is used of an entity.
bool IsUsed(int code);

/// Refuses a value that is no number where it should be one, or too long. Requires: the group is used.
Result<void> CheckValue(const DxfGroup& group, const TextLineReader& lines);

/// Refuses an entity that lacks a number, or tells another count of vertices than it has.
Result<void> CheckEntity(const DxfEntity& entity, const TextLineReader& lines);

/// Whether contours are made of entities of this kind, or of what belongs to them.
bool IsTaken(std::string_view kind);

}  // namespace vanzet::contour
