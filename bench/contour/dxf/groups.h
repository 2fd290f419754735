#pragma once

#include <memory>
#include <string>

#include "base/result.h"

namespace vanzet::contour {

/// A group of a drawing: the code that says what the value means, and the value.
struct DxfGroup {
  int code = 0;
  std::string value;  ///< as text, in binary drawings too
  int place = 0;      ///< of the value: its line, in a binary drawing its byte
  double number = 0;  ///< of the value where it has to be a number
};

/// The groups of a drawing in DXF, one after the other.
///
/// Source   pairs of lines, or the binary form: a mark of 22 bytes, then codes of one byte (255 begins one of
///          three, release 12 and before) or of two, and values whose size follows from the code
/// Errors   a fault with the line or the byte for a code that is not one, a value that is cut short, and
///          what a text file cannot have
class DxfGroups {
 public:
  /// The stream must outlive the groups. `name` is the name of the file in faults.
  static Result<std::unique_ptr<DxfGroups>> Open(std::istream& bytes, const std::string& name);

  virtual ~DxfGroups() = default;

  /// Reads the next group. Returns false at the end of the file, whose place it sets.
  virtual Result<bool> Next(DxfGroup& group) = 0;

  /// A fault at a place of the file.
  virtual Fault At(int place, std::string text) const = 0;
};

/// The first bytes of a binary drawing.
inline constexpr std::string_view kBinaryDxfMark("AutoCAD Binary DXF\r\n\x1a\0", 22);

}  // namespace vanzet::contour
