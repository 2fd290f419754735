#pragma once

#include <cstdint>

#include "view/qt/page_values.h"
#include "view/qt/pictures/sketch.h"

namespace vanzet::view::qt {

/// Tells the first of the faults of a picture: that an edit wants a number and holds none. `name` is what the
/// edit is called; without one, what stands in it is quoted.
void TellNoNumber(Sketch& sketch, const PageValues& values, std::int32_t edit, const QString& name = {});

}  // namespace vanzet::view::qt
