#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "base/result.h"
#include "contour/contour.h"

namespace vanzet::contour {

inline constexpr double kJoinTolerance = 0.001;

struct DxfOptions {
  std::string layer = {};        ///< only what is on it, in any case of letters; empty: all layers
  double join = kJoinTolerance;  ///< ends that are not farther apart belong together; in millimetres
  std::string unit = {};         ///< "mm", "inch" or "m"; empty: the drawing's own, or millimetres
};

/// Contours of a drawing, with a line for people about what was left out of it.
struct DxfContent {
  Contours contours;
  std::vector<std::string> remarks;
};

/// The contours of a drawing in DXF, docs/formats/contour.md. Refused with file and line: what is no drawing
/// or is cut short, an entity without its numbers, an arc or a coordinate that is none. Refused without a
/// line: a drawing without a contour, a layer without one, a unit that is not known.
Result<DxfContent> ReadDxf(std::istream& text, const std::string& name, const DxfOptions& options);

}  // namespace vanzet::contour
