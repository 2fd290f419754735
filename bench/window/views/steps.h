#pragma once

#include "base/length_unit.h"
#include "geometry/point.h"

/// Steps of round numbers, in which a drawing is measured. Lengths are millimetres; steps are in the unit of
/// the project, so that they are round there.
namespace vanzet::window {

/// The largest of 1, 2 and 5 times a power of ten that is not above `most`.
double RoundStep(double most);

/// The distance of the fine lines of the grid. `scale` is in pixels a millimetre.
double GridStep(double scale, LengthUnit unit);

/// The step of positions that the cursor can mean: not above a pixel.
double PixelStep(double scale, LengthUnit unit);

/// The nearest point whose coordinates are multiples of the step.
geometry::Point RoundTo(const geometry::Point& point, double step, LengthUnit unit);

}  // namespace vanzet::window
