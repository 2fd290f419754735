#pragma once

#include <nlohmann/json_fwd.hpp>

#include "contour/contour.h"

namespace vanzet::contour {

/// Contours for other programs, docs/formats/contour.md.
nlohmann::ordered_json JsonForm(const Contours& contours);

/// A point as a list of its two coordinates.
nlohmann::ordered_json JsonForm(const geometry::Point& point);

/// "clockwise", "anticlockwise", "none".
const char* DirectionName(int direction);

}  // namespace vanzet::contour
