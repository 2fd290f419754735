#pragma once

#include <istream>
#include <string>

#include "base/result.h"
#include "drawing/drawing.h"

/// A project's drawing as text, docs/formats/drawing.md.
namespace vanzet::drawing {

/// The longest name of a layer or figure, in bytes.
inline constexpr std::size_t kLongestName = 255;

/// Whether a layer or a figure can have this name: 1 to 255 bytes without control characters, and no blank at
/// either end. `what` says whose name it is.
Result<void> CheckName(std::string_view name, std::string_view what);

/// Refused with file and line: what is not of the form, cut short, or no drawing, such as a stroke in a layer
/// that is not listed.
Result<Drawing> ReadDrawing(std::istream& text, const std::string& name);

/// Reading it back gives the same drawing, to the last bit of each number.
std::string DrawingText(const Drawing& drawing);

}  // namespace vanzet::drawing
