#pragma once

#include "base/result.h"
#include "contour/contour.h"

namespace vanzet::contour {

/// A contour of what the library has made: in its reading order, without spans of no length. Refused when
/// nothing is left, or a coordinate is too large.
Result<Contour> Sound(int number, const geometry::KurveEx& curve);

/// "contour 3", for faults.
std::string Named(const Contour& contour);

}  // namespace vanzet::contour
