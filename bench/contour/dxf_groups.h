#pragma once

#include <vector>

#include "base/text_line_reader.h"

namespace vanzet::contour {

/// A pair of lines of a drawing: the code that says what the value means, and the value.
struct DxfGroup {
  int code = 0;
  std::string value;
  int line = 0;  ///< of the value
};

/// The groups from one of code 0 to the next: the name of the entity, and the groups that are used.
struct DxfEntity {
  std::string kind;
  int line = 0;
  std::vector<DxfGroup> groups;

  bool Has(int code) const;
};

/// Reads the groups of a drawing in DXF, which come as pairs of lines.
class DxfGroupReader {
 public:
  DxfGroupReader(std::istream& text, const std::string& name) : lines_(text, name) {}

  /// Reads the next group. Fails at the end of the text, since a drawing ends with the group "0 EOF".
  Result<DxfGroup> Next();

  const TextLineReader& lines() const { return lines_; }

 private:
  TextLineReader lines_;
};

/// Whether contours use this group of an entity: the layer, the flags and the coordinates.
bool IsUsed(int code);

/// Fails when the value is not a number where it has to be one, or is too long. Requires: the group is used.
Result<void> CheckValue(const DxfGroup& group, const TextLineReader& lines);

/// Fails when the entity lacks a number, or has another count of vertices than it declares.
Result<void> CheckEntity(const DxfEntity& entity, const TextLineReader& lines);

/// Whether contours are made of entities of this kind or of their parts.
bool IsTaken(std::string_view kind);

}  // namespace vanzet::contour
