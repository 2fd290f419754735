#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "view/shared/canvas.h"

namespace vanzet::view {

/// The value to emphasise.
struct Emphasis {
  std::int32_t control = 0;  ///< the edit that has the focus
  std::string value = {};    ///< the text of that edit
};

/// Draws the sketch as large as it fits into `area`, with its measures around it and its lines of text below.
/// Nothing without shapes. Returns where the letters are.
std::vector<Box> Paint(Canvas& canvas, const Box& area, const Sketch& sketch, const Palette& palette,
                       const Emphasis& emphasis);

/// The colour of faults, readable on the palette's base.
Rgb FaultColour(const Palette& palette);

}  // namespace vanzet::view
