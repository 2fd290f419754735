#pragma once

#include "section/section.h"

namespace vanzet::section {

/// Adds the dimensions and the datums of both spindles to a section with all its bodies. `subDatum` is the
/// place of the sub spindle's datum.
void AddMeasures(const scene::Equipment& equipment, double subDatum, Section& section);

}  // namespace vanzet::section
