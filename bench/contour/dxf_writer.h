#pragma once

#include <string>

#include "contour/contour.h"

namespace vanzet::contour {

/// The contours as polylines of a drawing in DXF, in millimetres, all on one layer; arcs are bulges. It is
/// read back by `ReadDxf` with one contour for each, and by programs that know the twelfth release of the
/// format or a later one.
std::string DxfForm(const Contours& contours, const std::string& layer);

}  // namespace vanzet::contour
