#pragma once

#include <istream>
#include <string>

#include "base/result.h"
#include "drawing/drawing.h"

/// The drawing of a project as text: docs/formats/drawing.md.
namespace vanzet::drawing {

/// The longest name of a layer or figure, in bytes.
inline constexpr std::size_t kLongestName = 255;

/// Checks that a layer or a figure can have this name: 1 to 255 bytes without control characters, and no
/// blank at either end. `what` names the kind of part in the fault.
Result<void> CheckName(std::string_view name, std::string_view what);

/// Reads a drawing. Fails with file, line and `kDamaged` for a text that does not follow the format, is cut
/// short, or is not a consistent drawing, such as one with a stroke in a layer that is not listed.
Result<Drawing> ReadDrawing(std::istream& text, const std::string& name);

/// Writes a drawing. Reading it back gives the same drawing, to the last bit of each number.
std::string DrawingText(const Drawing& drawing);

}  // namespace vanzet::drawing
